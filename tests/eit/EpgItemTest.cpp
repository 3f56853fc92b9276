#include <gtest/gtest.h>

#include <memory>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "EitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::unique_ptr<EpgItem> record(U8 tableId, U8 sectionNumber, U8 runningStatus)
{
    return std::make_unique<EpgItem>(tableId, 0xE580, 0x0640, 0x0641, 0x0102, 750515696, 6330, runningStatus,
                                     sectionNumber, "por", "Jornal", "News");
}

} // namespace

TEST(EpgItem, GettersAndClassification)
{
    LogCapture log;
    std::unique_ptr<EpgItem> item = record(0x4E, 0, 4);
    EXPECT_EQ(item->getTableId(), 0x4E);
    EXPECT_EQ(item->getServiceId(), 0xE580);
    EXPECT_EQ(item->getTsId(), 0x0640);
    EXPECT_EQ(item->getNetworkId(), 0x0641);
    EXPECT_EQ(item->getEventId(), 0x0102);
    EXPECT_EQ(item->getStartTime(), 750515696);
    EXPECT_EQ(item->getDuration(), 6330u);
    EXPECT_EQ(item->getRunningStatus(), 4);
    EXPECT_EQ(item->getSectionNumber(), 0);
    EXPECT_EQ(item->getLanguageCode(), "por");
    EXPECT_EQ(item->getEventName(), "Jornal");
    EXPECT_EQ(item->getEventDescription(), "News");

    struct Case {
        U8 tableId, section, status;
        BOOL present, following;
    } cases[] = {
        {0x4E, 0, 4, TRUE, FALSE},  {0x4E, 0, 2, FALSE, FALSE}, {0x4E, 1, 1, FALSE, TRUE},
        {0x4F, 1, 1, FALSE, FALSE}, {0x4F, 0, 4, FALSE, FALSE}, {0x50, 0, 4, FALSE, FALSE},
        {0x4E, 1, 4, FALSE, FALSE}, {0x4E, 2, 1, FALSE, FALSE},
    };
    for (const Case& c : cases) {
        std::unique_ptr<EpgItem> one = record(c.tableId, c.section, c.status);
        EXPECT_EQ(one->isPresentEvent(), c.present) << int(c.tableId) << " " << int(c.section);
        EXPECT_EQ(one->isFollowingEvent(), c.following) << int(c.tableId) << " " << int(c.section);
    }
}

TEST(EpgItem, PrintItemAndDestructorLines)
{
    struct Case {
        U8 tableId, section, status;
        const char* kind;
    } cases[] = {{0x4E, 0, 4, "EpgItem:  Present Event"},
                 {0x4E, 1, 1, "EpgItem:  Following Event"},
                 {0x4E, 0, 2, "EpgItem:  Schedule Event"}};
    for (const Case& c : cases) {
        LogCapture log;
        {
            std::unique_ptr<EpgItem> item = record(c.tableId, c.section, c.status);
            Bytes rating = ratingDescriptor();
            Bytes content = contentDescriptor();
            item->addDescriptorData(0x55, rating.data(), static_cast<U32>(rating.size()));
            item->addDescriptorData(0x54, content.data(), static_cast<U32>(content.size()));
            item->printItem();
        }
        const std::vector<std::string> expected{
            "EpgItem: +++++++++++++++++++++++++++++++++++++++++",
            c.kind,
            "EpgItem:       tableID: " + std::to_string(c.tableId),
            "EpgItem:     ServiceID: 58752",
            "EpgItem:         Ts ID: 1600",
            "EpgItem:     NetworkID: 1601",
            "EpgItem:       EventID: 258",
            "EpgItem:     StartTime: 750515696l",
            "EpgItem:      Duration: 6330",
            "EpgItem: RunningStatus: " + std::to_string(c.status),
            "EpgItem: SectionNUmber: " + std::to_string(c.section),
            "EpgItem: DescriptorTAG: 84",
            "EpgItem: DescriptorTAG: 85",
            "EpgItem: +++++++++++++++++++++++++++++++++++++++++",
            "EpgItem: DESTRUCTOR"};
        EXPECT_EQ(log.texts(), expected);
        for (const LogLine& line : log.lines()) {
            EXPECT_EQ(line.priority, 4) << line.text;
            EXPECT_EQ(line.tag, "VuRO");
        }
    }
}

TEST(EpgItem, DescriptorsAreRebuiltFromTheStoredCopies)
{
    std::unique_ptr<EpgItem> item = record(0x50, 0, 1);
    Bytes content = contentDescriptor();
    Bytes later = descriptor(0x54, {0x70, 0x01});
    Bytes name = descriptor(0x4D, {'p', 'o', 'r', 0, 0});
    Bytes rating = ratingDescriptor();
    item->addDescriptorData(0x54, content.data(), static_cast<U32>(content.size()));
    std::unique_ptr<TISDBTDescriptor> before(item->getDescriptor(0x54));
    item->addDescriptorData(0x54, later.data(), static_cast<U32>(later.size()));
    item->addDescriptorData(0x4D, name.data(), static_cast<U32>(name.size()));
    item->addDescriptorData(0x55, rating.data(), static_cast<U32>(rating.size()));
    content.assign(content.size(), 0); // copies were made
    EXPECT_EQ(item->getDescriptorTags(), (std::list<U8>{0x4D, 0x54, 0x55}));

    LogCapture log;
    std::unique_ptr<TISDBTDescriptor> first(item->getDescriptor(0x54));
    std::unique_ptr<TISDBTDescriptor> again(item->getDescriptor(0x54));
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, again); // a new object on every call
    EXPECT_EQ(static_cast<TContentDescriptor*>(first.get())->getUserByte(), 0x01); // the later copy is in force
    // A descriptor built from the earlier copy still reads it.
    EXPECT_EQ(static_cast<TContentDescriptor*>(before.get())->getUserByte(), 0x34);
    EXPECT_EQ(static_cast<TContentDescriptor*>(before.get())->getData()[3], 0x34);
    std::unique_ptr<TISDBTDescriptor> parental(item->getDescriptor(0x55));
    ASSERT_NE(parental, nullptr);
    EXPECT_EQ(static_cast<TParentalRatingDescriptor*>(parental.get())->get(0)->getRatingContent(), 5);
    EXPECT_EQ(item->getDescriptor(0x4D), nullptr); // stored, but not rebuilt: silent
    EXPECT_NO_LOG(log);
    EXPECT_EQ(item->getDescriptor(0x50), nullptr);
    EXPECT_WARNINGS(log, "EpgItem: Tag: 80 not found!");
}
