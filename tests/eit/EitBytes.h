// Event loop entries and event information sections built byte by byte.
#ifndef VURO_TESTS_EIT_BYTES_H
#define VURO_TESTS_EIT_BYTES_H

#include <cstdint>

#include "../support/SectionBuilder.h"

namespace VuroTest {

// event_id, start_time (MJD 0xC079 = 1993-10-13, BCD 12:34:56), duration (BCD
// 01:45:30), running_status (3) + free_CA_mode (1) + 12-bit
// descriptors_loop_length, descriptors.
inline Bytes eventEntry(std::uint16_t eventId, const Bytes& descriptors, std::uint8_t statusBits = 0x80,
                        std::uint16_t mjd = 0xC079)
{
    return concat({{static_cast<std::uint8_t>(eventId >> 8), static_cast<std::uint8_t>(eventId),
                    static_cast<std::uint8_t>(mjd >> 8), static_cast<std::uint8_t>(mjd), 0x12, 0x34, 0x56, 0x01,
                    0x45, 0x30, static_cast<std::uint8_t>(statusBits | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

// Header: service_id 0xE580, version 3, section 1 of 2, transport_stream_id
// 0x0640, original_network_id 0x0641, segment_last_section_number 1,
// last_table_id 0x50; then the events and a correct CRC_32.
inline Bytes eitSection(const Bytes& events, std::uint8_t tableId = 0x4E, std::uint8_t sectionNumber = 1)
{
    return SectionBuilder(tableId)
        .longHeader(0xE580, 3, true, sectionNumber, 2)
        .u16(0x0640)
        .u16(0x0641)
        .u8(1)
        .u8(0x50)
        .bytes(events)
        .build();
}

// A short event in Portuguese with a name and a text.
inline Bytes shortEvent()
{
    return descriptor(0x4D, {'p', 'o', 'r', 6, 'J', 'o', 'r', 'n', 'a', 'l', 4, 'N', 'e', 'w', 's'});
}

// One of each descriptor an event keeps besides the short event: video
// component, content (genre 1, user byte 0x34), parental rating (BRA, 12,
// sex and drugs), audio component (stream_content 2, language at byte 8) and
// digital copy control.
inline Bytes componentDescriptor() { return descriptor(0x50, {0xF5, 0xB3, 0x00, 'p', 'o', 'r', 'H', 'D'}); }
inline Bytes contentDescriptor() { return descriptor(0x54, {0x12, 0x34}); }
inline Bytes ratingDescriptor() { return descriptor(0x55, {'B', 'R', 'A', 0x53}); }
inline Bytes audioDescriptor() { return descriptor(0xC4, {0xF2, 0x03, 0x10, 0x11, 0x5F, 0xB1, 'p', 'o', 'r'}); }
inline Bytes copyControlDescriptor() { return descriptor(0xC1, {0x26, 0x50}); }

} // namespace VuroTest

#endif
