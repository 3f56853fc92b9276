#include <gtest/gtest.h>

#include <descriptors/TISDBTDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

struct HeaderCase {
    U16 code;
    BOOL result;
};

HeaderCase check(const Bytes& bytes, U8 minimum, U16 tag)
{
    ExactBuffer data(bytes);
    HeaderCase out{0xBEEF, FALSE};
    out.result = TISDBTDescriptor::parseCommonHeader(data.data(), data.size(), &out.code, minimum, tag);
    return out;
}

} // namespace

TEST(DescriptorHeader, PassesAndStoresOk)
{
    LogCapture log;
    HeaderCase r = check({0x41, 0x03, 0xE5, 0x80, 0x01}, 2, 0x41);
    EXPECT_EQ(r.result, TRUE);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    EXPECT_NO_LOG(log);
}

TEST(DescriptorHeader, ZeroLengthPassesWithZeroMinimum)
{
    HeaderCase r = check({0xF7, 0x00}, 0, 0xF7);
    EXPECT_EQ(r.result, TRUE);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
}

TEST(DescriptorHeader, NullData)
{
    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TISDBTDescriptor::parseCommonHeader(nullptr, 10, &code, 2, 0x41), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (1) Invalid data. Aborting!");
}

TEST(DescriptorHeader, DataShorterThanMinimumPlusHeader)
{
    LogCapture log;
    HeaderCase r = check({0x41, 0x02, 0x00}, 2, 0x41);
    EXPECT_EQ(r.result, FALSE);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 3 < 4. "
                    "Aborting!");
}

TEST(DescriptorHeader, MinimumPlusTwoIsTakenModulo256)
{
    LogCapture log;
    // 254 + 2 wraps to 0, so check 2 passes and check 5 refuses the length.
    HeaderCase r = check({0x41, 0x03, 0x01, 0x02, 0x03}, 254, 0x41);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (5) Longer descriptor length is "
                         "required: 3 < 254. Aborting!");
}

TEST(DescriptorHeader, WrappedMinimumStillNeedsTheTwoHeaderBytes)
{
    LogCapture log;
    HeaderCase r = check({0x41}, 255, 0x41);
    EXPECT_EQ(r.result, FALSE);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 1 < 2. "
                    "Aborting!");
}

TEST(DescriptorHeader, WrappedMinimumStillChecksTheTagWhenItsByteIsThere)
{
    LogCapture log;
    // One byte: the wrapped check 2 passes and the tag byte lies inside the
    // data, so the tag is compared before the missing length byte stops it.
    HeaderCase r = check({0x40}, 255, 0x41);
    EXPECT_EQ(r.result, FALSE);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (3) Unexpected Descriptor Tag. Got "
                         "0x40, instead of 0x41. Aborting!");
}

TEST(DescriptorHeader, TagMismatchIsReportedBeforeAnOverlongLength)
{
    LogCapture log;
    HeaderCase r = check({0x40, 0xFF, 0x00, 0x00}, 2, 0x41);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (3) Unexpected Descriptor Tag. Got "
                         "0x40, instead of 0x41. Aborting!");
}

TEST(DescriptorHeader, LengthBeyondDataPrintsNeededThenAvailable)
{
    LogCapture log;
    HeaderCase r = check({0x41, 0x09, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}, 2, 0x41);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (4) Longer data length is required: 11 < 8. "
                    "Aborting!");
}

TEST(DescriptorHeader, LengthOneByteLongEnoughPasses)
{
    HeaderCase r = check({0x41, 0x06, 0, 0, 0, 0, 0, 0}, 2, 0x41);
    EXPECT_EQ(r.result, TRUE);
}

TEST(DescriptorHeader, DescriptorLengthBelowMinimum)
{
    LogCapture log;
    HeaderCase r = check({0x41, 0x01, 0x00, 0x00, 0x00}, 2, 0x41);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (5) Longer descriptor length is "
                         "required: 1 < 2. Aborting!");
}
