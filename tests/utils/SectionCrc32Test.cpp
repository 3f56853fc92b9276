#include <gtest/gtest.h>

#include <random>
#include <vector>

#include <utils/SectionCrc32.h>

#include "../support/SectionBuilder.h"

using namespace Vuro;

namespace {

// Every engine, and the public entry point, against the bitwise definition
// over random contents, lengths (short ones, whole and partial 16/64-byte
// blocks, 4 KB sections and beyond) and start alignments.
TEST(SectionCrc32, EveryEngineMatchesTheBitwiseDefinitionAtAnyLengthAndAlignment)
{
    std::mt19937 random(20261123);
    std::vector<U8> buffer(8192 + 64);
    for (U8& byte : buffer)
        byte = static_cast<U8>(random());
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length <= 300; ++length)
        lengths.push_back(length);
    for (std::size_t length : {1023u, 1024u, 1025u, 4093u, 4096u, 4099u, 8192u})
        lengths.push_back(length);
    for (int i = 0; i < 200; ++i)
        lengths.push_back(random() % 8193);

    const bool clmul = SectionCrc32::hasCarrylessMultiply() != FALSE;
    for (std::size_t length : lengths) {
        const std::size_t offset = random() % 64;
        const U8* data = buffer.data() + offset;
        const U32 expected = VuroTest::referenceCrc32(data, length);
        SCOPED_TRACE(testing::Message() << "length " << length << " offset " << offset);
        ASSERT_EQ(SectionCrc32::bytewise(0xFFFFFFFFu, data, length), expected);
        ASSERT_EQ(SectionCrc32::sliced(0xFFFFFFFFu, data, length), expected);
        if (clmul) {
            ASSERT_EQ(SectionCrc32::carrylessMultiply(0xFFFFFFFFu, data, length), expected);
        }
        ASSERT_EQ(ISDBTUtils::getSectionCRC32(const_cast<U8*>(data), static_cast<U32>(length)), expected);

        // The register carries over: any split gives the whole.
        const std::size_t split = length ? random() % length : 0;
        ASSERT_EQ(SectionCrc32::update(SectionCrc32::update(0xFFFFFFFFu, data, split), data + split, length - split),
                  expected);
    }
}

} // namespace
