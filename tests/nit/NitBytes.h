#ifndef VURO_TESTS_NIT_BYTES_H
#define VURO_TESTS_NIT_BYTES_H

#include "../support/SectionBuilder.h"

namespace VuroTest {

// transport_stream_id, original_network_id, reserved + 12-bit
// transport_descriptors_length, descriptors.
inline Bytes streamEntry(std::uint16_t tsid, std::uint16_t onid, const Bytes& descriptors)
{
    return concat({{static_cast<std::uint8_t>(tsid >> 8), static_cast<std::uint8_t>(tsid),
                    static_cast<std::uint8_t>(onid >> 8), static_cast<std::uint8_t>(onid),
                    static_cast<std::uint8_t>(0xF0 | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

// A network information section of the actual network.
inline Bytes nitSection(std::uint16_t networkId, const Bytes& networkDescriptors, const Bytes& entries,
                        std::uint8_t version = 1)
{
    return SectionBuilder(0x40).longHeader(networkId, version).loop(networkDescriptors).loop(entries).build();
}

} // namespace VuroTest

#endif
