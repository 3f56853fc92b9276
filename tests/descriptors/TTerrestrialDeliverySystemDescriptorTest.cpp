#include <gtest/gtest.h>

#include <descriptors/TTerrestrialDeliverySystemDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

using TDS = TTerrestrialDeliverySystemDescriptor;

TEST(TerrestrialDeliverySystemDescriptor, AreaGuardModeAndFrequencies)
{
    LogCapture log;
    // Area code 0x123, guard interval 1/16, mode 1; frequency codes 0x0BC2 and 0x0E9E.
    ExactBuffer data(descriptor(0xFA, {0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TDS* d = TDS::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 6u);
    EXPECT_EQ(d->getAreaCode(), 0x123);
    EXPECT_EQ(d->getGuardInterval(), TDS::GUARD_INTERNVAL_1_16);
    EXPECT_EQ(d->getTransmissionMode(), TDS::TRANSMISSION_MODE_1);
    ASSERT_EQ(d->getFrequencyCounter(), 2);
    EXPECT_EQ(d->getFrequencies()[0], 0x0BC2);
    EXPECT_EQ(d->getFrequencies()[1], 0x0E9E);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(TerrestrialDeliverySystemDescriptor, AnOddTrailingByteIsNotRead)
{
    LogCapture log;
    ExactBuffer odd(descriptor(0xFA, {0xFF, 0xFE, 0x0B, 0xC2, 0x0E}));
    U32 parsed = 0;
    TDS* d = TDS::parse(odd.data(), odd.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->getAreaCode(), 0xFFF);
    EXPECT_EQ(d->getGuardInterval(), TDS::GUARD_INTERNVAL_1_4);
    EXPECT_EQ(d->getTransmissionMode(), TDS::TRANSMISSION_MODE_3);
    ASSERT_EQ(d->getFrequencyCounter(), 1);
    EXPECT_EQ(d->getFrequencies()[0], 0x0BC2);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(TerrestrialDeliverySystemDescriptor, AtLeastOneFrequencyIsRequired)
{
    LogCapture log;
    // Area code, guard interval and mode alone (descriptor_length 2) are
    // under the minimum of 4.
    ExactBuffer none(descriptor(0xFA, {0x12, 0x34}));
    U16 code = 0;
    EXPECT_EQ(TDS::parse(none.data(), none.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 4 < 6. Aborting!");
}
