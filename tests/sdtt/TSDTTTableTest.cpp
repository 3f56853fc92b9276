#include <gtest/gtest.h>

#include <memory>

#include <sdtt/TSDTTTable.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "DownloadBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

constexpr U16 kItem = TISDBTTable::ERROR_INVALID_ITEM;
constexpr U16 kDataLength = TISDBTTable::ERROR_INVALID_DATA_LENGTH;
const std::string kCopyTarget = "ISDBTUils: ParserUtils::parseByteArray: ERROR: Invalid data target. Aborting!";
const std::string kTableItem = "ISDBTUtils: TSDTTTable::parse: Invalid item. Aborting!";
const std::string kContentItem = "ISDBTUtils: TDownloadContent::parse: Invalid item. Aborting!";

std::string contentLength(const std::string& sizes)
{
    return "ISDBTUtils: TDownloadContent::parse: Item length not valid: " + sizes + ". Aborting!";
}

std::unique_ptr<TSDTTTable> parse(ExactBuffer& data, U16* code, TSDTTTable* previous = nullptr)
{
    // checkCRC32 first, then parseDescriptors: FALSE has no effect.
    return std::unique_ptr<TSDTTTable>(TSDTTTable::parse(data.data(), data.size(), TRUE, FALSE, code, previous));
}

// A receiver update: a download content descriptor with reboot, a
// compatibility entry for model 0x0010, one module and the portal update as
// private data, plus a text.
Bytes updateDescriptor(U32 downloadId)
{
    DownloadContentFields f;
    f.flags = 0xB8;
    f.downloadId = downloadId;
    return downloadContentDescriptor(
        f, compatibility(1, compatibilityItem(0x01, 0x00ABCD, {0x01, 0x04}, {0x02, 0x00}, subItem(1, {0x42}), 1)),
        module(0x0001, 0x00100000, {}), 1, portalUpdate(), textPart("por", "Atualizacao"));
}

// Content 1: two periods, an unknown descriptor, the 0xC9 descriptor.
// Content 2: nothing but the fixed fields.
Bytes twoContents()
{
    const Bytes periods = concat({schedule(0xE0A8, 0x12, 0x34, 0x56, 0x013000), schedule(0xE0A9, 0x02, 0x00, 0x00, 0x003000)});
    return concat({downloadContent(0x010, 0x020, 2, 1, 0x5, periods, concat({descriptor(0xFE, {1, 2}), updateDescriptor(0xABCD)})),
                   downloadContent(0x0FF, 0x100, 0, 0, 0, {}, {})});
}

} // namespace

TEST(SDTTTable, ReceiverUpdateWithTwoContents)
{
    LogCapture log;
    ExactBuffer data(sdttSection(0x12, 0x34, 3, 2, twoContents()));
    U16 code = 0xBEEF;
    std::unique_ptr<TSDTTTable> table = parse(data, &code);
    ASSERT_TRUE(table);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::SDTT);
    EXPECT_EQ(table->getTableIDExtension(), 0x1234);
    EXPECT_EQ(table->getMakerID(), 0x12);
    EXPECT_EQ(table->getModelID(), 0x34);
    EXPECT_EQ(table->getVersion(), 3);
    EXPECT_EQ(table->getTransportStreamID(), 0x0640);
    EXPECT_EQ(table->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(table->getServiceID(), 0xE760);
    EXPECT_EQ(table->getDescriptor(0xC9), nullptr);
    ASSERT_EQ(table->getDownloadContentSize(), 2u);

    TDownloadContent* first = table->getDownloadContent(0);
    EXPECT_EQ(first->getParentSDTTTable(), nullptr); // the parse links nothing
    EXPECT_EQ(first->getGroup(), 1);
    EXPECT_EQ(first->getTargetVersion(), 0x010);
    EXPECT_EQ(first->getNewVersion(), 0x020);
    EXPECT_EQ(first->getDownloadLevel(), 2);
    EXPECT_EQ(first->getVersionIndicator(), 1);
    EXPECT_EQ(first->getScheduleTimeShiftInfo(), 5);
    ASSERT_EQ(first->getScheduleInfoSize(), 2u);
    // MJD 57512 12:34:56; the duration stays BCD (1 h 30 min is 0x013000, not 5400).
    EXPECT_EQ(first->getScheduleInfo(0)->getStartTime(), ISDBTUtils::mjd2unix(57512) + 45296);
    EXPECT_EQ(first->getScheduleInfo(0)->getDuration(), 0x013000u);
    EXPECT_EQ(first->getScheduleInfo(1)->getStartTime(), ISDBTUtils::mjd2unix(57513) + 7200);
    EXPECT_EQ(first->getScheduleInfo(2), nullptr);
    EXPECT_EQ(first->getDescriptorTags(), std::list<U8>{0xC9});
    TDownloadContentDescriptor* d = first->getDownloadContentDescriptor();
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(first->getDescriptor(0xC9), d);
    EXPECT_EQ(first->getDescriptor(0xFE), nullptr);
    EXPECT_EQ(d->getDownloadID(), 0xABCDu);
    EXPECT_EQ(d->getCompatibilityDescriptor()->getCompatibilityDescriptorItem(0)->getModel(), 0x0010);
    EXPECT_EQ(d->getDownloadContentDescriptorItem(0)->getModuleSize(), 0x00100000u);
    EXPECT_EQ(d->getText(), "Atualizacao");
    ASSERT_NE(d->getAppPortalUpdateDescriptor(), nullptr);
    std::unique_ptr<std::list<TAppPortalUpdate::AppID*>> ids(d->getAppPortalUpdateDescriptor()->getIds());
    EXPECT_EQ(ids->front()->id, "256");

    TDownloadContent* second = table->getDownloadContent(1);
    EXPECT_EQ(second->getTargetVersion(), 0x0FF);
    EXPECT_EQ(second->getNewVersion(), 0x100);
    EXPECT_EQ(second->getScheduleInfoSize(), 0u);
    EXPECT_EQ(second->getDownloadContentDescriptor(), nullptr);
    EXPECT_TRUE(second->getDescriptorTags().empty());
    EXPECT_EQ(table->getDownloadContent(2), nullptr);

    EXPECT_EQ(log.texts(), (std::vector<std::string>{"ISDBTUtils: TDownloadContent::parse: Unknown descriptor: 0xFE. Ignored!",
                                                     kCopyTarget, kCopyTarget}));

    // Positional removal shifts the others forward; past the end is refused.
    EXPECT_FALSE(table->removeDownloadContent(2));
    EXPECT_FALSE(first->removeScheduleInfo(2));
    EXPECT_TRUE(first->removeScheduleInfo(0));
    EXPECT_EQ(first->getScheduleInfo(0)->getDuration(), 0x003000u);
    EXPECT_TRUE(table->removeDownloadContent(0));
    ASSERT_EQ(table->getDownloadContentSize(), 1u);
    EXPECT_EQ(table->getDownloadContent(0)->getTargetVersion(), 0x0FF);
    TDownloadContent* added = new TDownloadContent();
    added->addScheduleInfo(new TScheduleInfo());
    table->addDownloadContent(added);
    EXPECT_EQ(table->getDownloadContent(1), added);

    // Same version as the previous table; another table type.
    U16 again = 0;
    EXPECT_FALSE(parse(data, &again, table.get()));
    EXPECT_EQ(again, TISDBTTable::ERROR_TABLE_NOT_UPDATED);
}

TEST(SDTTTable, EmptySectionAndSingleEntries)
{
    ExactBuffer data(sdttSection(0xAA, 0xBB, 0, 0, {}));
    U16 code = 0xBEEF;
    std::unique_ptr<TSDTTTable> table = parse(data, &code);
    ASSERT_TRUE(table);
    EXPECT_EQ(table->getDownloadContentSize(), 0u);
    EXPECT_EQ(table->getServiceID(), 0xE760);

    // An entry with both lengths 0 reports its 8 fixed bytes.
    ExactBuffer entry(downloadContent(1, 2, 3, 3, 0xF, {}, {}));
    U32 length = 0;
    std::unique_ptr<TDownloadContent> content(
        TDownloadContent::parse(entry.data(), entry.size(), TRUE, &length, &code));
    ASSERT_TRUE(content);
    EXPECT_EQ(length, 8u);
    EXPECT_EQ(content->getDownloadLevel(), 3);
    EXPECT_EQ(content->getScheduleTimeShiftInfo(), 0xF);

    // A second 0xC9 replaces the first (which is freed).
    ExactBuffer twice(downloadContent(1, 2, 0, 0, 0, {}, concat({updateDescriptor(1), updateDescriptor(2)})));
    content.reset(TDownloadContent::parse(twice.data(), twice.size(), TRUE, &length, &code));
    ASSERT_TRUE(content);
    EXPECT_EQ(content->getDownloadContentDescriptor()->getDownloadID(), 2u);
    EXPECT_EQ(length, twice.size());

    LogCapture log;
    ExactBuffer shortPeriod(schedule(0xE0A8, 0, 0, 0, 0));
    EXPECT_EQ(TScheduleInfo::parse(shortPeriod.data(), 7, nullptr, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, "ISDBTUtils: TScheduleInfo::parse: Item length not valid: 7. Aborting!");
}

TEST(SDTTTable, RefusedContents)
{
    const Bytes period = schedule(0xE0A8, 0, 0, 0, 0x000100);
    Bytes overlong = downloadContent(1, 2, 0, 0, 0, {}, {});
    overlong[4] = 0x01; // content_description_length 16 with nothing after
    Bytes oddSchedule = downloadContent(1, 2, 0, 0, 0, concat({period, period}), {});
    oddSchedule[7] = 0x90; // schedule 9: wraps after the second period and walks on
    Bytes badDescriptor = downloadContent(1, 2, 0, 0, 0, {}, descriptor(0xC9, Bytes(18, 0)));
    badDescriptor[9] = 0xFF; // a descriptor longer than the entry
    const Bytes tooShort = downloadContent(1, 2, 0, 0, 0, {}, descriptor(0xC9, Bytes(17, 0)));
    struct Case {
        Bytes content;
        U16 entryCode;
        std::vector<std::string> lines;
    };
    const std::string header = "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: ";
    const Case cases[] = {
        {Bytes(7, 0), kDataLength, {contentLength("7")}},
        {overlong, kDataLength, {contentLength("16 > 0")}},
        {oddSchedule, kItem, {"ISDBTUtils: TScheduleInfo::parse: Item length not valid: 0. Aborting!", kContentItem}},
        {badDescriptor, kDataLength, {contentLength("255 > 18")}},
        {tooShort, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH,
         {header + "(2) Longer data length is required: 19 < 20. Aborting!"}},
    };
    for (const Case& c : cases) {
        {
            // The entry alone keeps its own code (or the descriptor's).
            LogCapture log;
            ExactBuffer data(c.content);
            U16 code = 0;
            std::unique_ptr<TDownloadContent> content(
                TDownloadContent::parse(data.data(), data.size(), TRUE, nullptr, &code));
            EXPECT_FALSE(content);
            EXPECT_EQ(code, c.entryCode);
            EXPECT_WARNINGS(log, c.lines);
        }
        // In a section the table replaces it with ERROR_INVALID_ITEM.
        LogCapture log;
        std::vector<std::string> lines = c.lines;
        lines.push_back(kTableItem);
        if (&c == &cases[2]) // in a section the walk reaches the CRC_32 first
            lines[0] = "ISDBTUtils: TScheduleInfo::parse: Item length not valid: 4. Aborting!";
        EXPECT_TRUE(refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); },
                              sdttSection(1, 2, 0, 1, c.content), kItem));
        EXPECT_EQ(log.texts(), lines);
    }

    // Wrong table_id; a section too short for the fixed body fields.
    EXPECT_TRUE(refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); },
                          SectionBuilder(0xC4).longHeader(0, 0).u8(0).build(), TISDBTTable::ERROR_INVALID_TABLE_ID));
    LogCapture log;
    EXPECT_TRUE(refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); },
                          SectionBuilder(0xC3).longHeader(0, 0).u16(1).build(), kDataLength));
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTTable::parse: Longer data length is required: 6 < 7. Aborting!");
}
