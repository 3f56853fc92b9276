#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> dsmccSeeds()
{
    const Bytes reference = descriptor(1, {0x85, 0xFF, 0x12, 0x34, 0x56, 0x78, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x01,
                                           0xAB, 0xCD, 0x00, 0x01, 0x00, 0x01});
    const Bytes endpoint = descriptor(2, {0xFF, 0xFF, 0x00, 0x00, 0x10, 0x00, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00,
                                          0x20, 0x00});
    const Bytes mode = descriptor(3, {0x02, 0xFF});
    // Start document at NPT 0x1234 with a private "doc"; the same event under
    // the old tag 26.
    const Bytes event = descriptor(4, {0x00, 0x07, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x12, 0x34, 'd', 'o', 'c'});
    Bytes oldEvent = event;
    oldEvent[0] = 26;
    const Bytes generalNpt = descriptor(4, {0xAB, 0xCD, 0x02, 0x01, 0x00, 0xAB, 0xCD, 0xEF, 0x03, 0x00, 0x07, 'x',
                                            'y', 'z', 'w', 'v'});
    const Bytes generalMjd = descriptor(4, {0x00, 0x10, 0x01, 0xE4, 0xF0, 0x12, 0x34, 0x56, 0x09, 0x00, 0x02, 'a',
                                            'b', 0x77, 0x12, 0x34, 'p'});
    const Bytes carousel{0xE1, 0x23, 0x05, 0x00, 0x00, 0x00, 0x2A, 0x40, 5, 'G', 'i', 'n', 'g', 'a'};
    return {
        {"TDatacasterCarousel", carousel},
        {"TDatacasterCarousel/within", concat({{3}, carousel})},
        {"TNPTReferenceDescriptor", reference},
        {"TNPTEndpointDescriptor", endpoint},
        {"TStreamModeDescriptor", mode},
        {"TStreamEventDescriptor", event},
        {"TStreamEventDescriptor/within", concat({event, mode})},
        {"TGeneralEventDescriptor", generalNpt},
        {"TGeneralEventDescriptor/within", concat({generalMjd, {0x00}})},
        {"TDSMCCSectionTable",
         SectionBuilder(0x3D).longHeader(0x1ABC, 3).bytes(concat({reference, endpoint, mode, event})).build()},
        {"TDSMCCSectionTable",
         SectionBuilder(0x3D).longHeader(0x0001, 1).bytes(concat({descriptor(0x17, {0x01}), oldEvent})).build()},
        {"TDsiDiiTable", SectionBuilder(0x3B).longHeader(0x0000, 1).u32(0x11031002).build()},
        {"TDDBTable", SectionBuilder(0x3C).longHeader(0x0001, 1).u32(0x11031003).build()},
        {"TLCMDescriptor",
         descriptor(0x7C, {0x01, 0x00, 0x0B, 0xF2, 0x01, 0x00, 0x00, 0x80, 0x00, 0x40, 0x00, 0x60, 0x03})},
        {"TLDMDescriptor", descriptor(0x7C, {0x02, 0x00, 0x09, 0x00, 0x08, 3, 'A', 'B', 'C', 3, 'D', 'E', 'F'})},
    };
}

} // namespace VuroFuzz
