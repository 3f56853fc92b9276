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

TPATTable* parsePat(ExactBuffer& data, U16* code, TPATTable* previous = nullptr, BOOL checkCrc = TRUE)
{
    return TPATTable::parse(data.data(), data.size(), TRUE, checkCrc, code, previous);
}

// The header check of `table` over exactly `bytes`; the body length goes to `bodyLength`.
BOOL header(TISDBTTable& table, const Bytes& bytes, BOOL versioned, U16* code, U16* bodyLength,
            TISDBTTable* previous = nullptr)
{
    ExactBuffer data(bytes);
    return table.parseCommonHeader(data.data(), data.size(), versioned, code, bodyLength, previous);
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

    const Bytes whole = patSection(0);
    Bytes pmt = whole;
    pmt[0] = 0x02;
    const std::pair<Bytes, U16> cases[] = {
        {Bytes(9, 0x00), TISDBTTable::ERROR_INVALID_DATA_LENGTH},
        {pmt, TISDBTTable::ERROR_INVALID_TABLE_ID},
        {Bytes(whole.begin(), whole.end() - 1), TISDBTTable::ERROR_INVALID_SECTION_LEN_TOO_BIG},
    };
    for (const auto& c : cases) {
        ExactBuffer data(c.first);
        EXPECT_EQ(parsePat(data, &code), nullptr);
        EXPECT_EQ(code, c.second);
    }

    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Invalid data. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 9 < 10. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x02, instead of 0x00. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Section length exceeds data length. Aborting!");

    log.clear();
    // A one-byte minimum and one byte of data: table_id is compared before
    // the missing section_length bytes stop the check.
    Bytes bytes = {0x3C};
    TISDBTTable table(TISDBTTable::DSI_DII, 1, 0x3B, bytes.data(), 1);
    U16 bodyLength = 0;
    EXPECT_EQ(header(table, {0x3C}, FALSE, &code, &bodyLength), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_TABLE_ID);
    EXPECT_EQ(header(table, {0x3B}, FALSE, &code, &bodyLength), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x3C, instead of 0x3B. Aborting!",
                    "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 1 < 3. Aborting!");
}

TEST(TableHeader, SectionAndBodyLengthsAndTheCrcIsNeverVerified)
{
    Bytes bytes = patSection(0);
    bytes[1] |= 0x70; // flags above section_length are ignored
    bytes.push_back(0xAA);
    bytes.push_back(0xBB);
    ExactBuffer data(bytes);
    U16 code = 0xBEEF;
    std::unique_ptr<TPATTable> table(parsePat(data, &code));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->size(), 1u);
    EXPECT_EQ(table->getDataLength(), data.size()); // the excess is copied, not read

    Bytes broken = patSection(0);
    broken.back() ^= 0xFF;
    ExactBuffer badCrc(broken);
    for (BOOL check : {TRUE, FALSE}) {
        code = 0xBEEF;
        table.reset(parsePat(badCrc, &code, nullptr, check));
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    }
    TISDBTTable::setDebug(FALSE, TRUE); // no effect on logging or parsing
    LogCapture log;
    EXPECT_EQ(TPATTable::parse(nullptr, 0, TRUE, TRUE, nullptr, nullptr), nullptr);
    EXPECT_EQ(log.lines().size(), 1u);

    // The body length is section_length less the CRC_32 and the long header.
    Bytes pat = patSection(0);
    TPATTable holder(pat.data(), static_cast<U32>(pat.size()));
    U16 bodyLength = 0;
    U16 headerCode = 0xBEEF;
    ASSERT_EQ(holder.TISDBTTable::parseCommonHeader(pat.data(), static_cast<U32>(pat.size()), FALSE, &headerCode,
                                                    &bodyLength, nullptr),
              TRUE);
    EXPECT_EQ(bodyLength, 5 + 4); // section_length 13 less the CRC
    EXPECT_EQ(headerCode, 0xBEEF); // nothing stored on success
    ASSERT_EQ(header(holder, pat, FALSE, &headerCode, &bodyLength), TRUE);
    EXPECT_EQ(bodyLength, 4);

    // section_length 3 wraps the short-header body count.
    Bytes tiny = {0x00, 0xB0, 0x03, 0, 0, 0, 0, 0, 0, 0};
    ASSERT_EQ(holder.TISDBTTable::parseCommonHeader(tiny.data(), 10, FALSE, &headerCode, &bodyLength, nullptr), TRUE);
    EXPECT_EQ(bodyLength, 65535);
}

TEST(VersionedHeader, SameVersionIsNoUpdateAndLaterSectionsParseOnlyAlone)
{
    LogCapture log;
    ExactBuffer first(patSection(4, true));
    std::unique_ptr<TPATTable> previous(parsePat(first, nullptr));
    ASSERT_NE(previous, nullptr);

    ExactBuffer next(patSection(4, false));
    U16 code = 0;
    EXPECT_EQ(parsePat(next, &code, previous.get()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_TABLE_NOT_UPDATED);

    ExactBuffer newer(patSection(5));
    std::unique_ptr<TPATTable> table(parsePat(newer, &code, previous.get()));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(previous->getVersion(), 4); // previous is only compared
    EXPECT_NO_LOG(log);

    ExactBuffer second(patSection(2, true, 1));
    std::unique_ptr<TPATTable> alone(parsePat(second, &code));
    ASSERT_NE(alone, nullptr);
    EXPECT_EQ(alone->getSectionNumber(), 1);
    EXPECT_EQ(alone->getLastSectionNumber(), 1);

    code = 0xBEEF;
    EXPECT_EQ(parsePat(second, &code, alone.get()), nullptr);
    EXPECT_EQ(code, 0xBEEF); // no code stored
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTVersionedTable::parse: Multi-section parsing not supported. TODO!");
}

TEST(VersionedHeader, PreviousOfAnotherTypeIsSilentAndShortDataFails)
{
    LogCapture log;
    Bytes other = {0x02, 0xB0, 0x09, 0, 1, 0xC1, 0, 0, 0, 0, 0, 0};
    TISDBTVersionedTable pmtLike(TISDBTTable::PMT, 4, 0x02, other.data(), static_cast<U32>(other.size()));
    Bytes bytes = patSection(7, true, 1);
    TPATTable table(bytes.data(), static_cast<U32>(bytes.size()));
    U16 bodyLength = 0;
    U16 code = 0;
    EXPECT_EQ(header(table, bytes, TRUE, &code, &bodyLength, &pmtLike), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INCOMPATIBLE_TABLE_TYPE);
    EXPECT_NO_LOG(log);

    // A 4-byte minimum and section_length 1: the short header passes, the
    // long header would be read past the data.
    EXPECT_EQ(header(pmtLike, {0x02, 0xB0, 0x01, 0x00}, TRUE, &code, &bodyLength), FALSE);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 4 < 8. Aborting!");
}
