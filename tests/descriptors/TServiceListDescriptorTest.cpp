#include <gtest/gtest.h>

#include <descriptors/TServiceListDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TServiceListDescriptor>;

const std::string kItemLine = "ISDBTUtils: TServiceListDescriptorItem::parse: Descriptor length not valid: ";
const std::string kInvalidItem = "ISDBTUtils: TServiceListDescriptor::parse: Invalid item. Aborting!";

} // namespace

TEST(ServiceListDescriptor, DecodesServicesKeyedByTheOredIdBytesAddAndRemove)
{
    LogCapture log;
    // Full-seg 0xE580 (digital TV), one-seg 0xE598 (0xC0), data 0x0002 (0xC0).
    Result r({0xE5, 0x98, 0xC0, 0xE5, 0x80, 0x01, 0x00, 0x02, 0xC0});
    ASSERT_TRUE(r.decoded(3u)); // the last item's length, not the body's
    TServiceListDescriptor* d = r.object.get();
    EXPECT_EQ(d->getDescriptorTag(), 0x41);
    EXPECT_EQ(d->getData(), r.data.data()); // borrowed, not copied
    EXPECT_EQ(d->getDataLength(), r.data.size());
    EXPECT_EQ(d->size(), 3u);
    EXPECT_EQ(d->getServiceIDs(), (std::list<U8>{0x02, 0xE5, 0xFD}));
    EXPECT_EQ(d->get(0xE5)->getServiceType(), 0x01);
    EXPECT_EQ(d->get(0xFD)->getServiceType(), 0xC0);
    EXPECT_EQ(d->get(0x80), nullptr);
    EXPECT_NO_LOG(log);

    // Services whose id bytes OR alike: the later one is kept.
    Result alike({0x01, 0x02, 0x01, 0x03, 0x00, 0xC0});
    ASSERT_NE(alike.object, nullptr);
    EXPECT_EQ(alike.object->size(), 1u);
    EXPECT_EQ(alike.object->get(0x03)->getServiceType(), 0xC0);

    // The caller's add and remove.
    Result own({0x00, 0x10, 0x01});
    TServiceListDescriptor* list = own.object.get();
    ASSERT_NE(list, nullptr);
    ExactBuffer more({0x00, 0x20, 0x02, 0x20, 0x00, 0xA1});
    TServiceListDescriptorItem* first = TServiceListDescriptorItem::parse(more.data(), 3, nullptr, nullptr);
    TServiceListDescriptorItem* second = TServiceListDescriptorItem::parse(more.data() + 3, 3, nullptr, nullptr);
    list->add(first);
    list->add(second); // same id 0x20: displaces first, which stays the caller's
    EXPECT_EQ(list->get(0x20), second);
    EXPECT_EQ(list->getServiceIDs(), (std::list<U8>{0x10, 0x20}));
    delete first;
    EXPECT_EQ(list->remove(0x99), FALSE);
    EXPECT_EQ(list->remove(0x10), TRUE);
    EXPECT_EQ(list->size(), 1u);
    EXPECT_EQ(list->remove(0x10), FALSE);
}

TEST(ServiceListDescriptor, Failures)
{
    expectRefusedWithin<TServiceListDescriptor>(
        descriptor(0x40, {0x00, 0x01, 0x01}), 0, TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG,
        {kHeaderLine + "(3) Unexpected Descriptor Tag. Got 0x40, instead of 0x41. Aborting!"});
    expectRefused<TServiceListDescriptor>({0x01}, kDescriptorLength,
                                          {kHeaderLine + "(2) Longer data length is required: 3 < 4. Aborting!"});
    // A two-byte body stops at the end of its own data.
    expectRefused<TServiceListDescriptor>({0x01, 0x02}, kDescriptorLength,
                                          {kItemLine + "2. Aborting!", kInvalidItem});
    // Whole items and a trailing partial one.
    expectRefused<TServiceListDescriptor>({0x00, 0x01, 0x01, 0x00}, kDescriptorLength,
                                          {kItemLine + "1. Aborting!", kInvalidItem});
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
    EXPECT_EQ(code, kDescriptorLength);
    EXPECT_WARNINGS(log, kItemLine + "4294967292. Aborting!", kInvalidItem);
}

TEST(ServiceListDescriptorItem, AcceptsTwoBytesButReportsThree)
{
    LogCapture log;
    ExactBuffer data({0x01, 0x02, 0x01});
    U32 length = 0;
    U16 code = 0xBEEF;
    // Two bytes are enough for the check; the third lies inside the buffer.
    std::unique_ptr<TServiceListDescriptorItem> item(
        TServiceListDescriptorItem::parse(data.data(), 2, &length, &code, data.data() + data.size()));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->getServiceID(), 0x03);
    EXPECT_EQ(item->getServiceType(), 0x01);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(code, kOk);

    EXPECT_EQ(TServiceListDescriptorItem::parse(data.data(), 1, &length, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, kItemLine + "1. Aborting!");
}
