#include <gtest/gtest.h>

#include <descriptors/TEmergencyInformationDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

TEST(EmergencyInformationDescriptor, OddAreaCodeLengthStepsFourPlusTwiceHalfTheLength)
{
    LogCapture log;
    // Service 0xE580 starts, level 0, area_code_length 5: two codes 0x456 and
    // 0x789; its step is 4 + 2 x 2 = 8, so the fifth area byte (0xE5) is where
    // the next service, 0xE598 (ended, level 1, one code 0x123), begins.
    Parsed<TEmergencyInformationDescriptor> r(
        {0xE5, 0x80, 0x80, 0x05, 0x45, 0x60, 0x78, 0x90, 0xE5, 0x98, 0x40, 0x02, 0x12, 0x30});
    ASSERT_TRUE(r.decoded(6u)); // the last item's length
    TEmergencyInformationDescriptor* d = r.object.get();
    ASSERT_EQ(d->size(), 2u);
    TEmergencyInformationDescriptorItem* first = d->get(0);
    EXPECT_EQ(first->getServiceID(), 0xE580);
    EXPECT_EQ(first->isStart(), TRUE);
    EXPECT_EQ(first->getSignalLevel(), 0);
    EXPECT_EQ(first->getAreaCodeCounter(), 5); // bytes, not codes
    EXPECT_EQ(first->getAreaCodes()[0], 0x456);
    EXPECT_EQ(first->getAreaCodes()[1], 0x789);
    TEmergencyInformationDescriptorItem* second = d->get(1);
    EXPECT_EQ(second->getServiceID(), 0xE598);
    EXPECT_EQ(second->isStart(), FALSE);
    EXPECT_EQ(second->getSignalLevel(), 1);
    EXPECT_EQ(second->getAreaCodeCounter(), 2);
    EXPECT_EQ(second->getAreaCodes()[0], 0x123);
    EXPECT_EQ(d->get(2), nullptr);
    EXPECT_NO_LOG(log);

    EXPECT_EQ(d->remove(2), FALSE);
    EXPECT_EQ(d->remove(0), TRUE);
    EXPECT_EQ(d->get(0), second);
}

TEST(EmergencyInformationDescriptor, ShortItemsFail)
{
    // A body shorter than an item.
    expectRefused<TEmergencyInformationDescriptor>(
        {0xE5, 0x80, 0x80, 0x00}, kDescriptorLength,
        {"ISDBTUtils: TEmergencyInformationDescriptorItem::parse: Item length not valid: 4. Aborting!",
         "ISDBTUtils: TEmergencyInformationDescriptor::parse: Invalid item. Aborting!"});

    LogCapture log;
    // area_code_length 6 announces three codes; the buffer holds one.
    ExactBuffer data({0xE5, 0x80, 0x80, 0x06, 0x12, 0x30});
    U16 code = 0;
    EXPECT_EQ(TEmergencyInformationDescriptorItem::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, "ISDBTUtils: TEmergencyInformationDescriptorItem::parse: Item length not valid: 6. Aborting!");
}
