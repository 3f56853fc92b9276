#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

// event_id, start 1993-10-13 12:34:56, duration 01:45:30, running_status +
// free_CA_mode + 12-bit descriptors_loop_length, descriptors.
Bytes eventEntry(std::uint16_t eventId, std::uint8_t status, const Bytes& descriptors)
{
    return concat({{static_cast<std::uint8_t>(eventId >> 8), static_cast<std::uint8_t>(eventId), 0xC0, 0x79, 0x12,
                    0x34, 0x56, 0x01, 0x45, 0x30, static_cast<std::uint8_t>(status | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

Bytes eit(std::uint8_t tableId, std::uint8_t sectionNumber, const Bytes& events)
{
    return SectionBuilder(tableId).longHeader(0xE580, 3, true, sectionNumber, 1).u16(0x0640).u16(0x0641).u8(1)
        .u8(0x50).bytes(events).build();
}

} // namespace

std::vector<Seed> eventSeeds()
{
    const Bytes name = descriptor(0x4D, {'p', 'o', 'r', 6, 'J', 'o', 'r', 'n', 'a', 'l', 4, 'N', 'e', 'w', 's'});
    const Bytes component = descriptor(0x50, {0xF5, 0xB3, 0x00, 'p', 'o', 'r', 'H', 'D'});
    const Bytes content = descriptor(0x54, {0x20, 0x00});
    const Bytes rating = descriptor(0x55, {'B', 'R', 'A', 0x53});
    const Bytes audio = descriptor(0xC4, {0xF2, 0x03, 0x10, 0x11, 0x5F, 0xB1, 'p', 'o', 'r'});
    const Bytes copy = descriptor(0xC1, {0x26, 0x50});
    const Bytes skipped = concat({descriptor(0x42, {0xFF}), descriptor(0x4E, {0x00, 'p', 'o', 'r', 0, 0}),
                                  descriptor(0xDE, {0xF7}), descriptor(0xD6, {0x00})});
    const Bytes news = eventEntry(0x0100, 0x80, concat({name, component, content, rating, audio, copy}));
    const Bytes film = eventEntry(0x0101, 0x20, concat({name, skipped, content}));
    return {
        {"TEITTable", eit(0x4E, 0, news)},
        {"TEITTable", eit(0x4E, 1, film)},
        {"TEITTable", eit(0x50, 0, concat({news, film, eventEntry(0x0102, 0x00, {})}))},
        {"TEventItemDescriptor", concat({news, {0xDE, 0xAD, 0xBE, 0xEF}})},
        {"TEventItemDescriptor", film},
        {"EpgItem", rating},
        {"EpgItem", audio},
        {"EpgItem", copy},
    };
}

} // namespace VuroFuzz
