#include <gtest/gtest.h>

#include <descriptors/TServiceListDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ServiceListDescriptor, DecodesServicesKeyedByTheOredIdBytes)
{
    LogCapture log;
    // Full-seg 0xE580 (digital TV), one-seg 0xE598 (0xC0), data 0x0002 (0xC0).
    ExactBuffer data(descriptor(0x41, {0xE5, 0x98, 0xC0, 0xE5, 0x80, 0x01, 0x00, 0x02, 0xC0}));
    U32 parsed = 99;
    U16 code = 0xBEEF;
    TServiceListDescriptor* d = TServiceListDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 3u); // the last item's length, not the body's
    EXPECT_EQ(d->getDescriptorTag(), 0x41);
    EXPECT_EQ(d->getData(), data.data()); // borrowed, not copied
    EXPECT_EQ(d->getDataLength(), data.size());
    EXPECT_EQ(d->size(), 3u);
    EXPECT_EQ(d->getServiceIDs(), (std::list<U8>{0x02, 0xE5, 0xFD}));
    EXPECT_EQ(d->get(0xE5)->getServiceType(), 0x01);
    EXPECT_EQ(d->get(0xFD)->getServiceType(), 0xC0);
    EXPECT_EQ(d->get(0x80), nullptr);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(ServiceListDescriptor, ServicesWhoseIdBytesOrAlikeKeepTheLater)
{
    ExactBuffer data(descriptor(0x41, {0x01, 0x02, 0x01, 0x03, 0x00, 0xC0}));
    TServiceListDescriptor* d = TServiceListDescriptor::parse(data.data(), data.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->size(), 1u);
    EXPECT_EQ(d->get(0x03)->getServiceType(), 0xC0);
    delete d;
}

TEST(ServiceListDescriptor, AddRemoveAndTheCallersDisplacedItem)
{
    ExactBuffer data(descriptor(0x41, {0x00, 0x10, 0x01}));
    TServiceListDescriptor* d = TServiceListDescriptor::parse(data.data(), data.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    ExactBuffer more({0x00, 0x20, 0x02, 0x20, 0x00, 0xA1});
    TServiceListDescriptorItem* first = TServiceListDescriptorItem::parse(more.data(), 3, nullptr, nullptr);
    TServiceListDescriptorItem* second = TServiceListDescriptorItem::parse(more.data() + 3, 3, nullptr, nullptr);
    d->add(first);
    d->add(second); // same id 0x20: displaces first, which stays the caller's
    EXPECT_EQ(d->get(0x20), second);
    EXPECT_EQ(d->getServiceIDs(), (std::list<U8>{0x10, 0x20}));
    delete first;
    EXPECT_EQ(d->remove(0x99), FALSE);
    EXPECT_EQ(d->remove(0x10), TRUE);
    EXPECT_EQ(d->size(), 1u);
    EXPECT_EQ(d->remove(0x10), FALSE);
    delete d;
}

TEST(ServiceListDescriptor, HeaderFailuresAllocateNothing)
{
    LogCapture log;
    ExactBuffer wrongTag(descriptor(0x40, {0x00, 0x01, 0x01}));
    U16 code = 0;
    EXPECT_EQ(TServiceListDescriptor::parse(wrongTag.data(), wrongTag.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG);
    ExactBuffer tooShort(descriptor(0x41, {0x01}));
    EXPECT_EQ(TServiceListDescriptor::parse(tooShort.data(), tooShort.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
}

TEST(ServiceListDescriptorItem, AcceptsTwoBytesButReportsThree)
{
    LogCapture log;
    ExactBuffer data({0x01, 0x02, 0x01});
    U32 length = 0;
    U16 code = 0xBEEF;
    // Two bytes are enough for the check; the third lies inside the buffer.
    TServiceListDescriptorItem* item =
        TServiceListDescriptorItem::parse(data.data(), 2, &length, &code, data.data() + data.size());
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->getServiceID(), 0x03);
    EXPECT_EQ(item->getServiceType(), 0x01);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    delete item;

    EXPECT_EQ(TServiceListDescriptorItem::parse(data.data(), 1, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TServiceListDescriptorItem::parse: Descriptor length not valid: 1. Aborting!");
}

TEST(ServiceListDescriptor, TwoByteBodyStopsAtTheEndOfItsOwnData)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x41, {0x01, 0x02}));
    U16 code = 0;
    EXPECT_EQ(TServiceListDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TServiceListDescriptorItem::parse: Descriptor length not valid: 2. Aborting!",
                    "ISDBTUtils: TServiceListDescriptor::parse: Invalid item. Aborting!");
}

TEST(ServiceListDescriptor, WrappedItemCountWalksOnInsideTheSectionThenFailsAtItsEnd)
{
    LogCapture log;
    // A 2-byte body inside a larger section: the first item takes a byte of
    // what follows, the 32-bit remaining count wraps, and items go on being
    // read from the section until one would pass its end.
    ExactBuffer section(concat({descriptor(0x41, {0x01, 0x02}), {0x03, 0x04, 0x05, 0x06}}));
    U16 code = 0;
    EXPECT_EQ(TServiceListDescriptor::parse(section.data(), 4, nullptr, &code, section.data() + section.size()),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TServiceListDescriptorItem::parse: Descriptor length not valid: 4294967292. "
                    "Aborting!",
                    "ISDBTUtils: TServiceListDescriptor::parse: Invalid item. Aborting!");
}

TEST(ServiceListDescriptor, BodyOfThreeItemsWithTrailingPartialItemFails)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x41, {0x00, 0x01, 0x01, 0x00}));
    U16 code = 0;
    EXPECT_EQ(TServiceListDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TServiceListDescriptorItem::parse: Descriptor length not valid: 1. Aborting!",
                    "ISDBTUtils: TServiceListDescriptor::parse: Invalid item. Aborting!");
}
