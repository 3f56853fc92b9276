#include <gtest/gtest.h>

#include <descriptors/TISDBTDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

const std::string kHeader = "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: ";

} // namespace

TEST(DescriptorHeader, ChecksInOrderWithTheirCodesAndLines)
{
    struct Case {
        Bytes bytes;
        U8 minimum;
        U16 tag;
        U16 code;
        std::string line; // empty: passes silently
    };
    const U16 ok = TISDBTTable::ERROR_OK, length = TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH,
              tag = TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG;
    const Case cases[] = {
        {{0x41, 0x03, 0xE5, 0x80, 0x01}, 2, 0x41, ok, ""},
        {{0xF7, 0x00}, 0, 0xF7, ok, ""},
        {{0x41, 0x06, 0, 0, 0, 0, 0, 0}, 2, 0x41, ok, ""}, // length just fits
        {{0x41, 0x02, 0x00}, 2, 0x41, length, "(2) Longer data length is required: 3 < 4. Aborting!"},
        // 254 + 2 wraps to 0, so check 2 passes and check 5 refuses the length.
        {{0x41, 0x03, 0x01, 0x02, 0x03}, 254, 0x41, length,
         "(5) Longer descriptor length is required: 3 < 254. Aborting!"},
        // The wrapped minimum still needs the two header bytes...
        {{0x41}, 255, 0x41, length, "(2) Longer data length is required: 1 < 2. Aborting!"},
        // ...but the tag byte, when there, is compared before the missing length byte stops it.
        {{0x40}, 255, 0x41, tag, "(3) Unexpected Descriptor Tag. Got 0x40, instead of 0x41. Aborting!"},
        // The tag mismatch is reported before an overlong length.
        {{0x40, 0xFF, 0x00, 0x00}, 2, 0x41, tag, "(3) Unexpected Descriptor Tag. Got 0x40, instead of 0x41. Aborting!"},
        // Needed, then available.
        {{0x41, 0x09, 0, 0, 0, 0, 0, 0}, 2, 0x41, length, "(4) Longer data length is required: 11 < 8. Aborting!"},
        {{0x41, 0x01, 0x00, 0x00, 0x00}, 2, 0x41, length, "(5) Longer descriptor length is required: 1 < 2. Aborting!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        LogCapture log;
        ExactBuffer data(c.bytes);
        U16 code = 0xBEEF;
        EXPECT_EQ(TISDBTDescriptor::parseCommonHeader(data.data(), data.size(), &code, c.minimum, c.tag),
                  c.line.empty() ? TRUE : FALSE);
        EXPECT_EQ(code, c.code);
        if (c.line.empty())
            EXPECT_NO_LOG(log);
        else
            EXPECT_WARNINGS(log, kHeader + c.line);
    }

    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TISDBTDescriptor::parseCommonHeader(nullptr, 10, &code, 2, 0x41), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA);
    EXPECT_WARNINGS(log, kHeader + "(1) Invalid data. Aborting!");
}
