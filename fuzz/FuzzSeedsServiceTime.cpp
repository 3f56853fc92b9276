#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

namespace {

// service_id, reserved + EIT flags, running_status + free_CA_mode + 12-bit
// descriptors_loop_length, descriptors.
Bytes serviceEntry(std::uint16_t serviceId, std::uint8_t flags, std::uint8_t status, const Bytes& descriptors)
{
    return concat({{static_cast<std::uint8_t>(serviceId >> 8), static_cast<std::uint8_t>(serviceId),
                    static_cast<std::uint8_t>(0xFC | flags),
                    static_cast<std::uint8_t>(status | (descriptors.size() >> 8)),
                    static_cast<std::uint8_t>(descriptors.size())},
                   descriptors});
}

} // namespace

std::vector<Seed> serviceTimeSeeds()
{
    // Brazil region 1, 3 hours behind UTC, changing on MJD 0xE4F0 to 02:00;
    // Argentina region 0, 03:30.
    const Bytes brazil{'B', 'R', 'A', 0x07, 0x03, 0x00, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x02, 0x00};
    const Bytes argentina{'A', 'R', 'G', 0x03, 0x03, 0x30, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x03, 0x00};
    const Bytes offsets = descriptor(0x58, concat({brazil, argentina}));
    // Full-seg HD service: names, copy once with maximum bitrate, content
    // availability, CA identifier, logo, bouquet and country availability;
    // one-seg service running with free CA, time-shifted off the first; an
    // NVOD reference with a 2 x 2 mosaic whose one cell links to a service.
    const Bytes names = descriptor(0x48, {0x01, 4, 'V', 'u', 'R', 'O', 7, 'V', 'u', 'R', 'O', ' ', 'H', 'D'});
    const Bytes full = serviceEntry(
        0xE580, 0x03, 0x80,
        concat({names, descriptor(0xC1, {0x26, 0x50}), descriptor(0xDE, {0xF7}), descriptor(0x53, {0x05, 0x20}),
                descriptor(0xCF, {0x01, 0x01, 0x23, 0x45, 0x67, 0x00, 0x01}), descriptor(0x42, {0xFF}),
                descriptor(0x47, {'V', 'u', 'R', 'O'}), descriptor(0x49, {0x80, 'B', 'R', 'A'})}));
    const Bytes oneSeg = serviceEntry(
        0xE598, 0x01, 0x90,
        concat({descriptor(0x48, {0xC0, 0, 3, 'E', 'P', 'G'}), descriptor(0x4C, {0xE5, 0x80}),
                descriptor(0x4A, {0x06, 0x40, 0x06, 0x41, 0xE5, 0x80, 0x02}), descriptor(0x4D, {'p', 'o', 'r'})}));
    const Bytes nvod = serviceEntry(0xE5B8, 0x00, 0x20,
                                    concat({descriptor(0x4B, {0x06, 0x40, 0x06, 0x41, 0xE5, 0x80}),
                                            descriptor(0x51, {0x91, 0x04, 0xF9, 0x01, 0x01, 0x02, 0x06, 0x41, 0x06, 0x40, 0xE5, 0x80})}));
    return {
        // Time offset table
        {"TTOTTable", SectionBuilder(0x73).u16(0xC079).u8(0x12).u8(0x45).u8(0x00).loop(offsets).build()},
        {"TTOTTable", SectionBuilder(0x73).u16(0xE4F0).u8(0x23).u8(0x59).u8(0x59)
                          .loop(concat({descriptor(0x4D, {0x01}), descriptor(0x58, brazil), offsets}))
                          .build()},
        {"TLocalTimeOffsetDescriptor", offsets},
        {"TLocalTimeOffsetDescriptor/within", concat({descriptor(0x58, brazil), argentina})},
        {"TLocalTimeOffsetDescriptorItem", brazil},
        // Service description table
        {"TServiceDescription", full},
        {"TServiceDescription", oneSeg},
        {"TSDTTable", SectionBuilder(0x42).longHeader(0x0640, 3).u16(0x0641).u8(0xFF)
                          .bytes(concat({oneSeg, full, nvod})).build()},
        {"TSDTTable", SectionBuilder(0x42).longHeader(0x0640, 4).u16(0x0641).u8(0xFF).build()},
    };
}

} // namespace VuroFuzz
