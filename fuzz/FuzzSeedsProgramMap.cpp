#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

// stream_type, reserved + 13-bit elementary_PID, reserved + 12-bit
// ES_info_length, descriptors.
Bytes streamEntry(std::uint8_t streamType, std::uint16_t pid, const Bytes& descriptors)
{
    return concat({{streamType, static_cast<std::uint8_t>(0xE0 | (pid >> 8)), static_cast<std::uint8_t>(pid),
                    static_cast<std::uint8_t>(0xF0 | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

} // namespace

std::vector<Seed> programMapSeeds()
{
    // Full-seg H.264 video (component 0x00, 1080i), one-seg video (0x81),
    // AAC audio in Portuguese, a data carousel (component 0x0C, carousel 10).
    const Bytes video = streamEntry(0x1B, 0x0111, concat({descriptor(0x52, {0x00}), descriptor(0xC8, {0x07}),
                                                         descriptor(0x28, {0x64, 0x00, 0x28, 0x3F})}));
    const Bytes oneSeg = streamEntry(0x1B, 0x0181, concat({descriptor(0x52, {0x81}), descriptor(0xDE, {0xDA})}));
    const Bytes audio = streamEntry(0x0F, 0x0112, concat({descriptor(0x52, {0x10}), descriptor(0x7C, {0x29, 0x00}),
                                                         descriptor(0x0A, {'p', 'o', 'r', 0x00})}));
    const Bytes data = streamEntry(0x0D, 0x0114,
                                   concat({descriptor(0x52, {0x40}), descriptor(0xFD, {0x00, 0x0C, 0x01}),
                                           descriptor(0x13, {0x00, 0x00, 0x00, 0x0A, 0x01, 0x02})}));
    const Bytes programInfo = concat({descriptor(0xC1, {0x2D, 0x50}), descriptor(0xDE, {0xDA}),
                                      descriptor(0x13, {0x00, 0x00, 0x00, 0x01}), descriptor(0x09, {0x05, 0x01})});
    return {
        {"TProgramMap", audio},
        {"TProgramMap", data},
        {"TPMTTable", SectionBuilder(0x02)
                          .longHeader(0xE580, 3)
                          .u16(0xE111)
                          .loop(programInfo)
                          .bytes(concat({video, oneSeg, audio, data}))
                          .build()},
    };
}

} // namespace VuroFuzz
