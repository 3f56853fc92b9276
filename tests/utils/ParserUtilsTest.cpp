#include <gtest/gtest.h>

#include <utils/ParserUtils.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ParseStr, ExplicitOrPrefixedLengthWithinOrPastTheLimit)
{
    struct Case {
        Bytes data;
        U32 length; // 0: a length-prefixed field
        U32 limit;
        S32 result;
        std::string target; // what the target holds afterwards ("old" when kept)
        std::string line;   // the length numbers of the warning, empty for none
    };
    const Case cases[] = {
        {{'B', 0x00, 'R', 0xE1}, 4, 4, 4, std::string("B\0R\xE1", 4), ""}, // raw bytes, zeros included
        {{0x55}, 0, 0, 0, "", ""},                                          // zero length, no data: empty
        {{4, 'G', 'l', 'o', 'b'}, 0, 5, 5, "Glob", ""},
        {{5, 'G', 'l', 'o', 'b'}, 0, 5, -1, "old", "5 > 4"}, // prefix longer than the rest
        {{'a', 'b', 'c'}, 4, 3, -1, "old", "4 > 3"},         // explicit length one over the limit
        {{'a', 'b', 'c'}, 3, 3, 3, "abc", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.target);
        LogCapture log;
        ExactBuffer data(c.data);
        std::string target = "old";
        EXPECT_EQ(ParserUtils::parseStr(data.data(), target, c.length, c.limit), c.result);
        EXPECT_EQ(target, c.target);
        if (c.line.empty())
            EXPECT_NO_LOG(log);
        else
            EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data "
                                 "length: " + c.line + ". Aborting!");
    }
}

TEST(ParseByteArray, CopiesIntoANewArrayWarningAboutANullTarget)
{
    const std::string nullTarget = "ISDBTUils: ParserUtils::parseByteArray: ERROR: Invalid data target. Aborting!";
    LogCapture log;
    ExactBuffer data({1, 2, 3});
    U8* target = nullptr;
    ParserUtils::parseByteArray(data.data(), target, 3);
    ASSERT_NE(target, nullptr);
    EXPECT_NE(target, data.data());
    EXPECT_EQ(Bytes(target, target + 3), (Bytes{1, 2, 3}));
    EXPECT_WARNINGS(log, nullTarget);
    delete[] target;

    // A non-null target is replaced without a warning.
    log.clear();
    U8 earlier[2] = {0, 0};
    target = earlier; // not ours to free: the call must not touch it
    ParserUtils::parseByteArray(data.data() + 1, target, 2);
    ASSERT_NE(target, earlier);
    EXPECT_EQ(Bytes(target, target + 2), (Bytes{2, 3}));
    EXPECT_NO_LOG(log);
    delete[] target;

    // Zero length leaves the target null.
    const std::string zero = "ISDBTUils: ParserUtils::parseByteArray: ERROR: Byte array length is not greater than "
                             "zero.Aborting!";
    log.clear();
    target = earlier;
    ParserUtils::parseByteArray(data.data(), target, 0);
    EXPECT_EQ(target, nullptr);
    EXPECT_WARNINGS(log, zero);
    log.clear();
    ParserUtils::parseByteArray(data.data(), target, 0);
    EXPECT_WARNINGS(log, nullTarget, zero);
}
