#include <gtest/gtest.h>

#include <memory>

#include <pat/TPATTable.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

Bytes pat(U16 tsid, U8 version, const std::vector<std::pair<U16, U16>>& programs, U8 sectionNumber = 0,
          bool current = true)
{
    SectionBuilder b(0x00);
    b.longHeader(tsid, version, current, sectionNumber, sectionNumber);
    for (const auto& p : programs)
        b.u16(p.first).u16(static_cast<U16>(0xE000 | p.second));
    return b.build();
}

std::unique_ptr<TPATTable> parse(ExactBuffer& data, U16* code)
{
    return std::unique_ptr<TPATTable>(TPATTable::parse(data.data(), data.size(), TRUE, TRUE, code, nullptr));
}

} // namespace

TEST(PATTable, DecodesProgramsAndTheNetworkPid)
{
    LogCapture log;
    ExactBuffer data(pat(0x0640, 3, {{0x0000, 0x0010}, {0xE580, 0x01F0}, {0xE598, 0x1FC8}}));
    U16 code = 0xBEEF;
    std::unique_ptr<TPATTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::PAT);
    EXPECT_EQ(table->getTransportStreamID(), 0x0640);
    EXPECT_EQ(table->getVersion(), 3);
    EXPECT_EQ(table->getCurrentIndicator(), TRUE);
    EXPECT_EQ(table->getNetworkPid(), 0x0010);
    EXPECT_EQ(table->size(), 2u);
    EXPECT_EQ(table->get(0xE580)->getProgramMapPid(), 0x01F0);
    EXPECT_EQ(table->get(0xE598)->getProgramNumber(), 0xE598);
    EXPECT_EQ(table->get(0x0000), nullptr);
    // The table keeps its own copy of the section.
    EXPECT_NE(table->getData(), data.data());
    EXPECT_EQ(Bytes(table->getData(), table->getData() + table->getDataLength()),
              Bytes(data.data(), data.data() + data.size()));
    EXPECT_TRUE(table->getDescriptorTags().empty());
    EXPECT_EQ(table->getDescriptor(0x41), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(PATTable, NetworkPidReservedBitsDuplicatesAndAnEmptyLoop)
{
    ExactBuffer onlyNetwork(pat(1, 0, {{0x0000, 0x0010}}));
    std::unique_ptr<TPATTable> table = parse(onlyNetwork, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->size(), 0u);
    EXPECT_EQ(table->getNetworkPid(), 0x0010);

    ExactBuffer noNetwork(pat(1, 0, {{0x0101, 0x0100}}));
    table = parse(noNetwork, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getNetworkPid(), 0);

    ExactBuffer empty(pat(0x7FFF, 31, {}));
    U16 code = 0xBEEF;
    table = parse(empty, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->size(), 0u);
    EXPECT_EQ(table->getVersion(), 31);

    // Reserved PID bits are masked and the later duplicate wins.
    Bytes bytes = SectionBuilder(0x00)
                      .longHeader(1, 0)
                      .bytes({0x00, 0x00, 0xFF, 0xFF})  // network PID 0x1FFF
                      .bytes({0x00, 0x00, 0xE0, 0x12})  // a later program_number 0 overwrites it
                      .bytes({0x00, 0x05, 0xFF, 0xFF})
                      .bytes({0x00, 0x05, 0x01, 0x23})
                      .build();
    ExactBuffer data(bytes);
    table = parse(data, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getNetworkPid(), 0x0012);
    EXPECT_EQ(table->size(), 1u);
    EXPECT_EQ(table->get(5)->getProgramMapPid(), 0x0123);

    ExactBuffer masked(pat(1, 0, {{0x0007, 0x1FFF}}));
    masked.data()[12] = 0xFF; // all reserved bits set
    table = parse(masked, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->get(7)->getProgramMapPid(), 0x1FFF);
}

TEST(PATTable, ProgramNumbersAscendRemoveDeletesAndNullsAreTolerated)
{
    ExactBuffer data(pat(1, 0, {{0x0300, 0x30}, {0x0100, 0x10}, {0x0200, 0x20}}));
    std::unique_ptr<TPATTable> table = parse(data, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getProgramNumbers(), (std::list<U16>{0x0100, 0x0200, 0x0300}));
    EXPECT_EQ(table->remove(0x0200), TRUE);
    EXPECT_EQ(table->remove(0x0200), FALSE);
    EXPECT_EQ(table->getProgramNumbers(), (std::list<U16>{0x0100, 0x0300}));

    TProgramAssociation* added = new TProgramAssociation(0x0050, 0x0500);
    table->add(added);
    EXPECT_EQ(table->get(0x0050), added);
    TProgramAssociation* displaced = table->get(0x0100);
    table->add(new TProgramAssociation(0x0100, 0x0111)); // the caller's displaced item is not deleted
    EXPECT_EQ(table->get(0x0100)->getProgramMapPid(), 0x0111);
    delete displaced;
    EXPECT_EQ(table->size(), 3u);
    // Null items and a null body-length pointer are tolerated.
    table->add(nullptr);
    EXPECT_EQ(table->size(), 3u);
    EXPECT_EQ(table->parseCommonHeader(data.data(), data.size(), FALSE, nullptr, nullptr, nullptr), TRUE);
}

TEST(PATTable, LoopsRunningPastTheDataFailThere)
{
    // Two program bytes too many: the second entry reads two body bytes and
    // two CRC bytes, the 16-bit count skips zero, and the third would pass
    // the end of the section.
    const Bytes notMultipleOfFour = SectionBuilder(0x00).longHeader(1, 0).u32(0x0001E100).u16(0x0002).build();
    // section_length 7 is two bytes short of header and CRC: the body count
    // wraps to 65534 and the first entry would already pass the data.
    Bytes tooSmall = SectionBuilder(0x00).longHeader(1, 0).buildWithSectionLength(7);
    tooSmall.resize(10);
    // section_length 9 minus 1: the count wraps to 65535 - 4 ... and the loop
    // reads the trailing bytes the caller handed over as entries until the
    // data ends, where it stops with the length code.
    Bytes wrapped = SectionBuilder(0x00).longHeader(1, 0).buildWithSectionLength(8);
    wrapped.insert(wrapped.end(), {0x00, 0x09, 0xE0, 0x90});
    const std::pair<Bytes, const char*> cases[] = {{notMultipleOfFour, "2"}, {tooSmall, "2"}, {wrapped, "0"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.first));
        LogCapture log;
        ExactBuffer data(c.first);
        U16 code = 0;
        EXPECT_EQ(parse(data, &code), nullptr);
        EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Longer data length is required: " +
                                 std::string(c.second) + " < 4. Aborting!");
    }
}
