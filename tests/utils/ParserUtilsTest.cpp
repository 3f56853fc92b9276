#include <gtest/gtest.h>

#include <utils/ParserUtils.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ParseStr, ExplicitLengthCopiesRawBytesIncludingZeros)
{
    LogCapture log;
    ExactBuffer data({'B', 0x00, 'R', 0xE1});
    std::string target = "old";
    EXPECT_EQ(ParserUtils::parseStr(data.data(), target, 4, 4), 4);
    EXPECT_EQ(target, std::string("B\0R\xE1", 4));
    EXPECT_NO_LOG(log);
}

TEST(ParseStr, ZeroLengthAndNoDataGivesAnEmptyString)
{
    LogCapture log;
    U8 unused = 0x55;
    std::string target = "old";
    EXPECT_EQ(ParserUtils::parseStr(&unused, target, 0, 0), 0);
    EXPECT_EQ(target, "");
    EXPECT_NO_LOG(log);
}

TEST(ParseStr, LengthPrefixedField)
{
    ExactBuffer data({4, 'G', 'l', 'o', 'b'});
    std::string target;
    EXPECT_EQ(ParserUtils::parseStr(data.data(), target, 0, 5), 5);
    EXPECT_EQ(target, "Glob");
}

TEST(ParseStr, PrefixLongerThanTheRestFailsAndKeepsTarget)
{
    LogCapture log;
    ExactBuffer data({5, 'G', 'l', 'o', 'b'});
    std::string target = "kept";
    EXPECT_EQ(ParserUtils::parseStr(data.data(), target, 0, 5), -1);
    EXPECT_EQ(target, "kept");
    EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: "
                         "5 > 4. Aborting!");
}

TEST(ParseStr, ExplicitLengthOneOverTheLimitFails)
{
    LogCapture log;
    ExactBuffer data({'a', 'b', 'c'});
    std::string target;
    EXPECT_EQ(ParserUtils::parseStr(data.data(), target, 4, 3), -1);
    EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: "
                         "4 > 3. Aborting!");
    EXPECT_EQ(ParserUtils::parseStr(data.data(), target, 3, 3), 3);
    EXPECT_EQ(target, "abc");
}

TEST(ParseByteArray, CopiesIntoANewArrayAndWarnsAboutTheFreshTarget)
{
    LogCapture log;
    ExactBuffer data({1, 2, 3});
    U8* target = nullptr;
    ParserUtils::parseByteArray(data.data(), target, 3);
    ASSERT_NE(target, nullptr);
    EXPECT_NE(target, data.data());
    EXPECT_EQ(Bytes(target, target + 3), (Bytes{1, 2, 3}));
    EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseByteArray: ERROR: Invalid data target. Aborting!");
    delete[] target;
}

TEST(ParseByteArray, NonNullTargetIsReplacedWithoutWarning)
{
    LogCapture log;
    ExactBuffer data({9, 8});
    U8 earlier[2] = {0, 0};
    U8* target = earlier; // not ours to free: the call must not touch it
    ParserUtils::parseByteArray(data.data(), target, 2);
    ASSERT_NE(target, earlier);
    EXPECT_EQ(Bytes(target, target + 2), (Bytes{9, 8}));
    EXPECT_NO_LOG(log);
    delete[] target;
}

TEST(ParseByteArray, ZeroLengthLeavesTargetNull)
{
    LogCapture log;
    U8 unused = 0;
    U8 earlier = 0;
    U8* target = &earlier;
    ParserUtils::parseByteArray(&unused, target, 0);
    EXPECT_EQ(target, nullptr);
    EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseByteArray: ERROR: Byte array length is not greater than "
                         "zero.Aborting!");

    log.clear();
    ParserUtils::parseByteArray(&unused, target, 0);
    EXPECT_WARNINGS(log, "ISDBTUils: ParserUtils::parseByteArray: ERROR: Invalid data target. Aborting!",
                    "ISDBTUils: ParserUtils::parseByteArray: ERROR: Byte array length is not greater than "
                    "zero.Aborting!");
}
