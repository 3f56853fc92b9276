#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <tot/TTOTTable.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// Brazil, region 1, 3 hours behind UTC (offset BCD hhmm), time_of_change MJD
// 0xE4F0 00:00:00, next_time_offset 02:00.
Bytes brazil(U8 hours = 0x03, U8 minutes = 0x00)
{
    return {'B', 'R', 'A', 0x07, hours, minutes, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x02, 0x00};
}

// UTC_time 1993-10-13 (MJD 0xC079) 12:45:00, then the descriptor loop.
Bytes tot(const Bytes& loop, U16 loopLength = 0)
{
    SectionBuilder b(0x73);
    b.u16(0xC079).u8(0x12).u8(0x45).u8(0x00);
    if (loopLength)
        b.u16(static_cast<U16>(0xF000 | loopLength)).bytes(loop);
    else
        b.loop(loop);
    return b.build();
}

std::unique_ptr<TTOTTable> parse(ExactBuffer& data, U16* code, BOOL parseDescriptors = TRUE)
{
    return std::unique_ptr<TTOTTable>(
        TTOTTable::parse(data.data(), data.size(), TRUE, parseDescriptors, code, nullptr));
}

// The section fails with the length code and exactly these lines.
void expectFailure(const Bytes& section, U16 expectedCode, const std::vector<std::string>& lines)
{
    LogCapture log;
    ExactBuffer data(section);
    U16 code = 0;
    EXPECT_EQ(parse(data, &code), nullptr);
    EXPECT_EQ(code, expectedCode);
    EXPECT_WARNINGS(log, lines);
}

const std::string kUnknown = "ISDBTUtils: TTOTTable::parse: Unknown descriptor: 0x";
const std::string kUnknown4D = kUnknown + "4D. Ignored!";
const std::string kLength = "ISDBTUtils: TISDBTTable::parse: Longer data length is required: ";

} // namespace

TEST(TOTTable, DecodesUtcTimeAndTheLocalTimeOffset)
{
    LogCapture log;
    ExactBuffer data(tot(descriptor(0x58, brazil())));
    U16 code = 0xBEEF;
    std::unique_ptr<TTOTTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::TOT);
    EXPECT_EQ(table->getUnixTime(), 750516300);
    TLocalTimeOffsetDescriptor* offsets = table->getLocalTimeOffsetDescriptor();
    ASSERT_NE(offsets, nullptr);
    EXPECT_EQ(table->getDescriptor(0x58), offsets);
    EXPECT_EQ(table->getDescriptor(0x41), nullptr);
    EXPECT_EQ(table->getDescriptorTags(), (std::list<U8>{0x58}));
    EXPECT_EQ(offsets->getData(), table->getData() + 10); // borrows the table's copy
    EXPECT_EQ(offsets->get("BRA")->getLocalTimeOffset(), 10800);
    EXPECT_EQ(offsets->get("BRA")->getCountryRegionID(), 1);
    EXPECT_NO_LOG(log);

    // Without descriptor parsing the caller's code stays and nothing is built.
    code = 0xBEEF;
    table = parse(data, &code, FALSE);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, 0xBEEF);
    EXPECT_EQ(table->getUnixTime(), 750516300);
    EXPECT_TRUE(table->getDescriptorTags().empty());
}

TEST(TOTTable, UnknownDescriptorsAreSkippedAndTheLaterOffsetDescriptorWins)
{
    LogCapture log;
    ExactBuffer data(tot(concat({descriptor(0x58, brazil(0x02, 0x00)), descriptor(0x4D, {0x01, 0x02}),
                                 descriptor(0x58, brazil(0x03, 0x30))})));
    std::unique_ptr<TTOTTable> table = parse(data, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getLocalTimeOffsetDescriptor()->get("BRA")->getLocalTimeOffset(), 39600);
    EXPECT_WARNINGS(log, kUnknown4D);

    // descriptors_loop_length 0x42 matches a 0x4D descriptor claiming 64 body
    // bytes that the section does not hold: skipping it, as it closes the
    // loop, reads none of them.
    log.clear();
    ExactBuffer closing(tot({0x4D, 0x40, 0x01}, 0x42));
    U16 code = 0xBEEF;
    table = parse(closing, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getLocalTimeOffsetDescriptor(), nullptr);
    EXPECT_WARNINGS(log, kUnknown4D);
}

TEST(TOTTable, Failures)
{
    Bytes twelve = brazil();
    twelve.pop_back();
    // A valid descriptor before the malformed one is freed with the table.
    expectFailure(tot(concat({descriptor(0x58, brazil()), descriptor(0x58, twelve)})),
                  TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH,
                  {"ISDBTUtils: TLocalTimeOffsetDescriptorItem::parse: Descriptor length not valid: 12. Aborting!",
                   "ISDBTUtils: TLocalTimeOffsetDescriptor::parse: Descriptor length not valid: 12. Aborting!"});

    Bytes section = tot({});
    const U16 tooLong = TISDBTTable::ERROR_INVALID_DATA_LENGTH;
    expectFailure(Bytes(section.begin(), section.begin() + 9), tooLong, {kLength + "9 < 10. Aborting!"});
    section[0] = 0x70; // a time and date section
    expectFailure(section, TISDBTTable::ERROR_INVALID_TABLE_ID,
                  {"ISDBTUtils: TISDBTTable::parse: Unexpected table ID. Got 0x70, instead of 0x73. Aborting!"});

    // Descriptors and loops running past the data fail there.
    // descriptor_length 0x40: only 4 bytes of it and the CRC_32 follow.
    // The loop goes on after it, so the walk stops where it would pass the end.
    expectFailure(tot({0x4D, 0x40, 0x01, 0x02, 0x03, 0x04}), tooLong, {kUnknown4D, kLength + "10 < 66. Aborting!"});

    // A local time offset descriptor is refused by the table before its own
    // parse would walk on.
    Bytes cut = tot(descriptor(0x58, concat({brazil(), brazil()})));
    cut.resize(30);
    cut[2] = 27;
    expectFailure(cut, tooLong, {kLength + "20 < 28. Aborting!"});

    // The CRC_32 bytes below are read as descriptors by a loop that goes on.
    // descriptors_loop_length 0xFFF: stops at the descriptor that would pass
    // the end.
    Bytes longLoop = tot(concat({descriptor(0x4D, {0x00}), {0x41, 0x00, 0x42, 0x05}}), 0xFFF);
    longLoop.resize(longLoop.size() - 4);
    longLoop[2] -= 4;
    expectFailure(longLoop, tooLong,
                  {kUnknown4D, kUnknown + "41. Ignored!", kUnknown + "42. Ignored!",
                   kLength + "2 < 7. Aborting!"});
    // descriptors_loop_length 1 over a 2-byte descriptor: the 16-bit count
    // wraps to 65535 and the walk reads on until no byte is left for a header.
    Bytes wrapped = tot(concat({descriptor(0x4D, {}), {0x41, 0x00, 0x42, 0x00}}), 1);
    wrapped.resize(wrapped.size() - 4);
    wrapped[2] -= 4;
    expectFailure(wrapped, tooLong,
                  {kUnknown4D, kUnknown + "41. Ignored!", kUnknown + "42. Ignored!",
                   kLength + "0 < 2. Aborting!"});
}
