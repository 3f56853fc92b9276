#include <gtest/gtest.h>

#include <memory>

#include <TISDBTTable.h>
#include <dct/TDatacasterCarousel.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// PID 0x0123 (reserved bits set), version 5, carousel 42, component tag
// 0x40, then the name with its length byte.
Bytes entry(const Bytes& name)
{
    return concat({{0xE1, 0x23, 0x05, 0x00, 0x00, 0x00, 0x2A, 0x40}, name});
}

struct Result {
    std::unique_ptr<TDatacasterCarousel> entry;
    U32 itemLength = 0xDEAD;
    U16 code = 0xBEEF;
};

// Parsed from an exact buffer; with a length, handed that dataLength within it.
Result parse(const Bytes& bytes, U32 length = 0)
{
    ExactBuffer data(bytes);
    Result r;
    r.entry.reset(length ? TDatacasterCarousel::parse(data.data(), length, TRUE, &r.itemLength, &r.code,
                                                      data.data() + data.size())
                         : TDatacasterCarousel::parse(data.data(), data.size(), FALSE, &r.itemLength, &r.code));
    return r;
}

const std::string kItemLine = "ISDBTUtils: TDatacasterCarousel::parse: Item length not valid: ";

} // namespace

TEST(DatacasterCarousel, DecodesTheEntryAndItsName)
{
    LogCapture log;
    Result r = parse(entry({5, 'G', 'i', 'n', 'g', 'a', 0xFF}));
    ASSERT_NE(r.entry, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(r.itemLength, 14u);
    EXPECT_EQ(r.entry->getPID(), 0x0123);
    EXPECT_EQ(r.entry->getVersion(), 5);
    EXPECT_EQ(r.entry->getCarouselID(), 42u);
    EXPECT_EQ(r.entry->getComponentTag(), 0x40);
    EXPECT_EQ(r.entry->getApplicationName(), "Ginga");
    r.entry->setParentDCTTable(nullptr);

    // An empty name; no byte at all for its length.
    r = parse(entry({0}));
    ASSERT_NE(r.entry, nullptr);
    EXPECT_EQ(r.itemLength, 9u);
    EXPECT_EQ(r.entry->getApplicationName(), "");
    r = parse(entry({}));
    ASSERT_NE(r.entry, nullptr);
    EXPECT_EQ(r.itemLength, 8u);
    EXPECT_NO_LOG(log);
}

TEST(DatacasterCarousel, Failures)
{
    LogCapture log;
    // A name longer than the data left.
    Result r = parse(entry({2, 'X'}));
    EXPECT_EQ(r.entry, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 2 > 1. "
                    "Aborting!",
                    "ISDBTUtils: TDatacasterCarousel:: parse: ERROR: parsing ApplicationName. Aborting!");

    // Two bytes are refused. Three pass the admission test, but the 8 fixed
    // bytes they lead to are not there: the entry stops with the same line.
    const Bytes fixed = entry({});
    for (U32 length : {2u, 3u, 7u}) {
        log.clear();
        r = parse(Bytes(fixed.begin(), fixed.begin() + length));
        EXPECT_EQ(r.entry, nullptr);
        EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        EXPECT_WARNINGS(log, kItemLine + std::to_string(length) + ". Aborting!");
    }
}

TEST(DatacasterCarousel, ShortAdmittedLengthReadsOnToTheBufferEnd)
{
    LogCapture log;
    // dataLength 3 inside a larger buffer: the fixed bytes and the name are
    // read from the buffer (the name's limit wraps below zero).
    Result r = parse(entry({4, 'N', 'C', 'L', 'u'}), 3);
    ASSERT_NE(r.entry, nullptr);
    EXPECT_EQ(r.entry->getApplicationName(), "NCLu");
    EXPECT_EQ(r.itemLength, 13u);
    EXPECT_NO_LOG(log);

    // A name that passes the end of the buffer, and no byte for its length.
    r = parse(entry({4, 'N', 'C'}), 3);
    EXPECT_EQ(r.entry, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    r = parse(entry({}), 3);
    EXPECT_EQ(r.entry, nullptr);
    EXPECT_WARNINGS(log, kItemLine + "3. Aborting!", kItemLine + "0. Aborting!");
}
