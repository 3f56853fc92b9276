#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> serviceTimeSeeds()
{
    // Brazil region 1, 3 hours behind UTC, changing on MJD 0xE4F0 to 02:00;
    // Argentina region 0, 03:30.
    const Bytes brazil{'B', 'R', 'A', 0x07, 0x03, 0x00, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x02, 0x00};
    const Bytes argentina{'A', 'R', 'G', 0x03, 0x03, 0x30, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x03, 0x00};
    const Bytes offsets = descriptor(0x58, concat({brazil, argentina}));
    return {
        // Time offset table
        {"TTOTTable", SectionBuilder(0x73).u16(0xC079).u8(0x12).u8(0x45).u8(0x00).loop(offsets).build()},
        {"TTOTTable", SectionBuilder(0x73).u16(0xE4F0).u8(0x23).u8(0x59).u8(0x59)
                          .loop(concat({descriptor(0x4D, {0x01}), descriptor(0x58, brazil), offsets}))
                          .build()},
        {"TLocalTimeOffsetDescriptor", offsets},
        {"TLocalTimeOffsetDescriptor/within", concat({descriptor(0x58, brazil), argentina})},
        {"TLocalTimeOffsetDescriptorItem", brazil},
    };
}

} // namespace VuroFuzz
