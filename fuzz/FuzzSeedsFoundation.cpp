#include "FuzzSeeds.h"

namespace VuroFuzz {

using namespace VuroTest;

std::vector<Seed> foundationSeeds()
{
    const Bytes serviceList = descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0});
    return {
        {"ParserUtils::parseStr", {0x00, 4, 'G', 'l', 'o', 'b'}},
        {"ParserUtils::parseByteArray", {3, 1, 2, 3}},
        {"ISDBTUtils", {0xC0, 0x79, 0x12, 0x45, 0x00}},
        {"TPATTable", SectionBuilder(0x00).longHeader(0x0640, 1).u32(0x0000E010).u32(0xE580E1F0).u32(0xE598FFC8)
                          .build()},
        {"TServiceListDescriptor", serviceList},
        {"TServiceListDescriptor/within", concat({descriptor(0x41, {0x01, 0x02}), {0x03, 0x04, 0x05}})},
        {"TServiceListDescriptorItem", {0xE5, 0x80, 0x01}},
    };
}

} // namespace VuroFuzz

namespace VuroFuzz {

std::vector<Seed> allSeeds()
{
    std::vector<Seed> all;
    for (std::vector<Seed> family :
         {foundationSeeds(), networkSeeds(), serviceEventSeeds(), streamSeeds(), programMapSeeds(), serviceTimeSeeds(),
          downloadSeeds(), dsmccSeeds(), applicationSeeds(), eventSeeds()})
        all.insert(all.end(), family.begin(), family.end());
    return all;
}

} // namespace VuroFuzz
