#include <gtest/gtest.h>

#include <TISDBTVersionedTable.h>
#include <pat/TPATTable.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

Bytes patSection(U8 version, bool current = true, U8 sectionNumber = 0)
{
    return SectionBuilder(0x00).longHeader(0x0640, version, current, sectionNumber, 1).u32(0xE580E1F0).build();
}

} // namespace

TEST(TableHeader, ErrorCodesAndTypeValues)
{
    EXPECT_EQ(TISDBTTable::ERROR_INCOMPATIBLE_TABLE_TYPE, 2560);
    EXPECT_EQ(TISDBTTable::ERROR_INVALID_ITEM, 2570);
    EXPECT_EQ(TISDBTTable::ERROR_INVALID_CRC32, 2566);
    EXPECT_EQ(static_cast<U32>(TISDBTTable::HEIT_FOLLOWING), 0x0012004Fu);
    EXPECT_EQ(static_cast<U32>(TISDBTTable::DCT), 0xFFFF0099u);
    EXPECT_EQ(TISDBTTable::COMMON_HEADER_LENGTH, 3u);
    EXPECT_EQ(TISDBTVersionedTable::COMMON_HEADER_LENGTH, 8u);
    EXPECT_EQ(TISDBTTable::TX_TYPE_LAYERABC, 3);
}

TEST(TableHeader, ChecksInOrderWithTheirCodesAndLines)
{
    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TPATTable::parse(nullptr, 100, TRUE, TRUE, &code, nullptr), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA);

    ExactBuffer nine(Bytes(9, 0x00));
    EXPECT_EQ(TPATTable::parse(nine.data(), nine.size(), TRUE, TRUE, &code, nullptr), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    Bytes pmt = patSection(0);
    pmt[0] = 0x02;
    ExactBuffer wrongId(pmt);
    EXPECT_EQ(TPATTable::parse(wrongId.data(), wrongId.size(), TRUE, TRUE, &code, nullptr), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_TABLE_ID);

    Bytes longer = patSection(0);
    ExactBuffer oneShort(Bytes(longer.begin(), longer.end() - 1));
    EXPECT_EQ(TPATTable::parse(oneShort.data(), oneShort.size(), TRUE, TRUE, &code, nullptr), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_SECTION_LEN_TOO_BIG);

    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Invalid data. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 9 < 10. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x02, instead of 0x00. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Section length exceeds data length. Aborting!");
}

TEST(TableHeader, ShortMinimumStillChecksTheTableIdWhenItsByteIsThere)
{
    LogCapture log;
    // A one-byte minimum and one byte of data: table_id is compared before
    // the missing section_length bytes stop the check.
    ExactBuffer wrongId({0x3C});
    TISDBTTable table(TISDBTTable::DSI_DII, 1, 0x3B, wrongId.data(), wrongId.size());
    U16 bodyLength = 0;
    U16 code = 0;
    EXPECT_EQ(table.parseCommonHeader(wrongId.data(), wrongId.size(), FALSE, &code, &bodyLength, nullptr), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_TABLE_ID);

    ExactBuffer rightId({0x3B});
    EXPECT_EQ(table.parseCommonHeader(rightId.data(), rightId.size(), FALSE, &code, &bodyLength, nullptr), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x3C, instead of 0x3B. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 1 < 3. Aborting!");
}

TEST(TableHeader, SectionLengthUsesTwelveBitsAndMayLeaveBytesOver)
{
    Bytes bytes = patSection(0);
    bytes[1] |= 0x70; // flags above section_length are ignored
    bytes.push_back(0xAA);
    bytes.push_back(0xBB);
    ExactBuffer data(bytes);
    U16 code = 0xBEEF;
    TPATTable* table = TPATTable::parse(data.data(), data.size(), TRUE, TRUE, &code, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->size(), 1u);
    EXPECT_EQ(table->getDataLength(), data.size()); // the excess is copied, not read
    delete table;
}

TEST(TableHeader, BodyLengthIsSectionLengthLessCrcAndLongHeader)
{
    Bytes bytes = patSection(0);
    TPATTable table(bytes.data(), static_cast<U32>(bytes.size()));
    U16 bodyLength = 0;
    U16 code = 0xBEEF;
    ASSERT_EQ(table.TISDBTTable::parseCommonHeader(bytes.data(), static_cast<U32>(bytes.size()), FALSE, &code,
                                                   &bodyLength, nullptr),
              TRUE);
    EXPECT_EQ(bodyLength, 5 + 4); // section_length 13 less the CRC
    EXPECT_EQ(code, 0xBEEF);      // nothing stored on success
    ASSERT_EQ(table.parseCommonHeader(bytes.data(), static_cast<U32>(bytes.size()), FALSE, &code, &bodyLength,
                                      nullptr),
              TRUE);
    EXPECT_EQ(bodyLength, 4);

    // section_length 3 wraps the short-header body count.
    Bytes tiny = {0x00, 0xB0, 0x03, 0, 0, 0, 0, 0, 0, 0};
    ASSERT_EQ(table.TISDBTTable::parseCommonHeader(tiny.data(), 10, FALSE, &code, &bodyLength, nullptr), TRUE);
    EXPECT_EQ(bodyLength, 65535);
}

TEST(TableHeader, CrcIsNeverVerified)
{
    Bytes bytes = patSection(0);
    bytes.back() ^= 0xFF;
    ExactBuffer data(bytes);
    for (BOOL check : {TRUE, FALSE}) {
        U16 code = 0xBEEF;
        TPATTable* table = TPATTable::parse(data.data(), data.size(), TRUE, check, &code, nullptr);
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(code, TISDBTTable::ERROR_OK);
        delete table;
    }
    TISDBTTable::setDebug(FALSE, TRUE); // no effect on logging or parsing
    LogCapture log;
    EXPECT_EQ(TPATTable::parse(nullptr, 0, TRUE, TRUE, nullptr, nullptr), nullptr);
    EXPECT_EQ(log.lines().size(), 1u);
}

TEST(VersionedHeader, SameVersionIsNotAnUpdateWhateverTheCurrentIndicator)
{
    LogCapture log;
    ExactBuffer first(patSection(4, true));
    TPATTable* previous = TPATTable::parse(first.data(), first.size(), TRUE, TRUE, nullptr, nullptr);
    ASSERT_NE(previous, nullptr);

    ExactBuffer next(patSection(4, false));
    U16 code = 0;
    EXPECT_EQ(TPATTable::parse(next.data(), next.size(), TRUE, TRUE, &code, previous), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_TABLE_NOT_UPDATED);

    ExactBuffer newer(patSection(5));
    TPATTable* table = TPATTable::parse(newer.data(), newer.size(), TRUE, TRUE, &code, previous);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(previous->getVersion(), 4); // previous is only compared
    EXPECT_NO_LOG(log);
    delete table;
    delete previous;
}

TEST(VersionedHeader, LaterSectionNumbersParseAloneButNotAgainstPrevious)
{
    LogCapture log;
    ExactBuffer second(patSection(2, true, 1));
    U16 code = 0xBEEF;
    TPATTable* alone = TPATTable::parse(second.data(), second.size(), TRUE, TRUE, &code, nullptr);
    ASSERT_NE(alone, nullptr);
    EXPECT_EQ(alone->getSectionNumber(), 1);
    EXPECT_EQ(alone->getLastSectionNumber(), 1);

    code = 0xBEEF;
    EXPECT_EQ(TPATTable::parse(second.data(), second.size(), TRUE, TRUE, &code, alone), nullptr);
    EXPECT_EQ(code, 0xBEEF); // no code stored
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTVersionedTable::parse: Multi-section parsing not supported. TODO!");
    delete alone;
}

TEST(VersionedHeader, PreviousOfAnotherTypeIsReportedFirstAndSilently)
{
    LogCapture log;
    Bytes other = {0x02, 0xB0, 0x09, 0, 1, 0xC1, 0, 0, 0, 0, 0, 0};
    TISDBTVersionedTable pmtLike(TISDBTTable::PMT, 4, 0x02, other.data(), static_cast<U32>(other.size()));
    Bytes bytes = patSection(7, true, 1);
    TPATTable table(bytes.data(), static_cast<U32>(bytes.size()));
    U16 bodyLength = 0;
    U16 code = 0;
    EXPECT_EQ(table.parseCommonHeader(bytes.data(), static_cast<U32>(bytes.size()), TRUE, &code, &bodyLength,
                                      &pmtLike),
              FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INCOMPATIBLE_TABLE_TYPE);
    EXPECT_NO_LOG(log);
}

TEST(VersionedHeader, FewerBytesThanTheLongHeaderFailWithTheLengthCode)
{
    LogCapture log;
    // A table with a 4-byte minimum and section_length 1: the short header
    // passes, the long header would be read past the data.
    Bytes bytes = {0x02, 0xB0, 0x01, 0x00};
    ExactBuffer data(bytes);
    TISDBTVersionedTable table(TISDBTTable::PMT, 4, 0x02, data.data(), data.size());
    U16 bodyLength = 0;
    U16 code = 0;
    EXPECT_EQ(table.parseCommonHeader(data.data(), data.size(), TRUE, &code, &bodyLength, nullptr), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 4 < 8. Aborting!");
}
