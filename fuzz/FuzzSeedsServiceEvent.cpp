#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> serviceEventSeeds()
{
    // "por", "Jornal" and a one-line synopsis, then a content descriptor that
    // follows in the event's loop.
    const Bytes shortEvent = descriptor(0x4D, {'p', 'o', 'r', 6, 'J', 'o', 'r', 'n', 'a', 'l', 9, 'N', 'o', 't',
                                               'i', 'c', 'i', 'a', 's', '.'});
    const Bytes content = descriptor(0x54, {0x02, 0x00});
    // Digital TV service "Globo" by "TV Globo".
    const Bytes service =
        descriptor(0x48, {0x01, 8, 'T', 'V', ' ', 'G', 'l', 'o', 'b', 'o', 5, 'G', 'l', 'o', 'b', 'o'});
    const Bytes nvodItem = {0x04, 0x21, 0x04, 0x21, 0xE5, 0x80};
    const Bytes bouquetCell = {0x04, 0x01, 0x02, 0x01, 0x02, 0x01, 0x00, 0x10};
    const Bytes eventCell = {0x08, 0x01, 0x00, 0x04, 0x04, 0x21, 0x04, 0x21, 0xE5, 0x80, 0x12, 0x34};
    const Bytes rating = {'B', 'R', 'A', 0x53};
    const Bytes component = descriptor(0x50, {0xF1, 0xB3, 0x00, 'p', 'o', 'r', 'H', 'D'});
    const Bytes audio = descriptor(0xC4, {0xF2, 0x03, 0x10, 0x11, 0xFF, 0xAF, 'p', 'o', 'r', 'e', 'n', 'g',
                                          'A'});
    return {
        {"TShortEventDescriptor", shortEvent},
        {"TShortEventDescriptor/within", concat({shortEvent, content})},
        {"TServiceDescriptor", service},
        {"TServiceDescriptor/within", concat({service, descriptor(0x47, {'B'})})},
        {"TBouquetNameDescriptor", descriptor(0x47, {'S', 'B', 'T', 'V', 'D'})},
        {"TBouquetNameDescriptor/within", concat({descriptor(0x47, {'S'}), service})},
        {"TCountryAvailabilityDescriptor", descriptor(0x49, {0x80, 'B', 'R', 'A', 'A', 'R', 'G'})},
        {"TCountryAvailabilityDescriptor/within", concat({descriptor(0x49, {0x7F, 'B', 'R', 'A', 'P'}), service})},
        {"TNVODReferenceDescriptor", descriptor(0x4B, concat({nvodItem, nvodItem}))},
        {"TNVODReferenceDescriptor/within", concat({descriptor(0x4B, nvodItem), content})},
        {"TNVODReferenceDescriptorItem", nvodItem},
        {"TTimeShiftedServiceDescriptor", descriptor(0x4C, {0xE5, 0x80})},
        {"TTimeShiftedServiceDescriptor/within", concat({descriptor(0x4C, {0xE5, 0x80}), content})},
        {"TMosaicDescriptor", descriptor(0x51, concat({{0x90}, bouquetCell, eventCell}))},
        {"TMosaicDescriptor/within", concat({descriptor(0x51, concat({{0x7F}, bouquetCell})), eventCell})},
        {"TMosaicDescriptorCell", eventCell},
        {"TParentalRatingDescriptor", descriptor(0x55, concat({rating, {'A', 'R', 'G', 0x21}}))},
        {"TParentalRatingDescriptor/within", concat({descriptor(0x55, rating), content})},
        {"TParentalRatingDescriptorItem", rating},
        {"TComponentDescriptor", component},
        {"TComponentDescriptor/within", concat({component, audio})},
        {"TAudioComponentDescriptor", audio},
        {"TAudioComponentDescriptor/within", concat({audio, content})},
        {"TContentDescriptor", descriptor(0x54, {0x02, 0x00, 0x11, 0x22})},
        {"TContentDescriptor/within", concat({content, shortEvent})},
    };
}

} // namespace VuroFuzz
