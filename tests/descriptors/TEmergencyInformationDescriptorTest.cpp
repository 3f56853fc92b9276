#include <gtest/gtest.h>

#include <descriptors/TEmergencyInformationDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(EmergencyInformationDescriptor, OddAreaCodeLengthStepsFourPlusTwiceHalfTheLength)
{
    LogCapture log;
    // Service 0xE580 starts, level 0, area_code_length 5: two codes 0x456 and
    // 0x789; its step is 4 + 2 x 2 = 8, so the fifth area byte (0xE5) is where
    // the next service, 0xE598 (ended, level 1, one code 0x123), begins.
    ExactBuffer data(descriptor(0xFC, {0xE5, 0x80, 0x80, 0x05, 0x45, 0x60, 0x78, 0x90,
                                       0xE5, 0x98, 0x40, 0x02, 0x12, 0x30}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TEmergencyInformationDescriptor* d =
        TEmergencyInformationDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 6u); // the last item's length
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
    delete d;
}

TEST(EmergencyInformationDescriptor, ABodyShorterThanAnItemFails)
{
    LogCapture log;
    ExactBuffer data(descriptor(0xFC, {0xE5, 0x80, 0x80, 0x00}));
    U16 code = 0;
    EXPECT_EQ(TEmergencyInformationDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TEmergencyInformationDescriptorItem::parse: Item length not valid: 4. Aborting!",
                    "ISDBTUtils: TEmergencyInformationDescriptor::parse: Invalid item. Aborting!");
}

TEST(EmergencyInformationDescriptorItem, AreaCodesAreReadOnlyInsideTheBuffer)
{
    LogCapture log;
    // area_code_length 6 announces three codes; the buffer holds one.
    ExactBuffer data({0xE5, 0x80, 0x80, 0x06, 0x12, 0x30});
    U16 code = 0;
    EXPECT_EQ(TEmergencyInformationDescriptorItem::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TEmergencyInformationDescriptorItem::parse: Item length not valid: 6. Aborting!");
}
