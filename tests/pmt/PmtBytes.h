#ifndef VURO_TESTS_PMT_BYTES_H
#define VURO_TESTS_PMT_BYTES_H

#include "../support/SectionBuilder.h"

namespace VuroTest {

// stream_type, reserved + 13-bit elementary_PID, reserved + 12-bit
// ES_info_length, descriptors.
inline Bytes streamEntry(std::uint8_t streamType, std::uint16_t pid, const Bytes& descriptors)
{
    return concat({{streamType, static_cast<std::uint8_t>(0xE0 | (pid >> 8)), static_cast<std::uint8_t>(pid),
                    static_cast<std::uint8_t>(0xF0 | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

// A program map section: PCR_PID, the program_info loop, the streams.
inline Bytes pmtSection(std::uint16_t programNumber, std::uint16_t pcrPid, const Bytes& programInfo,
                        const Bytes& streams, std::uint8_t version = 1)
{
    return SectionBuilder(0x02)
        .longHeader(programNumber, version)
        .u16(static_cast<std::uint16_t>(0xE000 | pcrPid))
        .loop(programInfo)
        .bytes(streams)
        .build();
}

} // namespace VuroTest

#endif
