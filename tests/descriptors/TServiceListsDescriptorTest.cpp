#include <gtest/gtest.h>

#include <descriptors/TCountryAvailabilityDescriptor.h>
#include <descriptors/TNVODReferenceDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(CountryAvailabilityDescriptor, DecodesFlagAndCodesAndAlwaysReportsZero)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x49, {0x80, 'B', 'R', 'A', 'A', 'R', 'G'}));
    U32 parsed = 99;
    U16 code = 0xBEEF;
    TCountryAvailabilityDescriptor* d = TCountryAvailabilityDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 0u);
    EXPECT_EQ(d->getCountryAvailabilityFlag(), 1);
    ASSERT_EQ(d->size(), 2u);
    EXPECT_EQ(d->get(0), 0x425241u);
    EXPECT_EQ(d->get(1), 0x415247u);
    EXPECT_EQ(d->get(2), 0u);
    d->add(0x505259);
    EXPECT_EQ(d->get(2), 0x505259u);
    EXPECT_EQ(d->remove(0), TRUE);
    EXPECT_EQ(d->remove(2), FALSE);
    EXPECT_EQ(d->get(0), 0x415247u);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(CountryAvailabilityDescriptor, CodeLoopNotEndingOnAWholeCodeIsRefusedAtTheDescriptorEnd)
{
    LogCapture log;
    U16 code = 0;
    ExactBuffer data(descriptor(0x49, {0x00, 'B', 'R', 'A', 'P'}));
    EXPECT_EQ(TCountryAvailabilityDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    // Inside a section the partial code is refused without reading the
    // following bytes: here the limit claims more than the allocation holds,
    // so a read past the descriptor would be caught.
    code = 0;
    EXPECT_EQ(TCountryAvailabilityDescriptor::parse(data.data(), data.size(), nullptr, &code, data.data() + 64),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_NO_LOG(log);
}

TEST(NVODReferenceDescriptor, DecodesItemsInArrivalOrder)
{
    LogCapture log;
    ExactBuffer data(
        descriptor(0x4B, {0x04, 0x21, 0x04, 0x22, 0xE5, 0x81, 0x04, 0x21, 0x04, 0x22, 0xE5, 0x80}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TNVODReferenceDescriptor* d = TNVODReferenceDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 6u); // the last item's length
    ASSERT_EQ(d->size(), 2u);
    EXPECT_EQ(d->get(0)->getTransportStreamID(), 0x0421);
    EXPECT_EQ(d->get(0)->getOriginalNetworkID(), 0x0422);
    EXPECT_EQ(d->get(0)->getServiceID(), 0xE581);
    EXPECT_EQ(d->get(1)->getServiceID(), 0xE580);
    EXPECT_EQ(d->get(2), nullptr);
    EXPECT_EQ(d->remove(0), TRUE);
    EXPECT_EQ(d->get(0)->getServiceID(), 0xE580);
    EXPECT_EQ(d->remove(1), FALSE);
    ExactBuffer more({0x00, 0x01, 0x00, 0x02, 0x00, 0x03});
    d->add(TNVODReferenceDescriptorItem::parse(more.data(), more.size(), nullptr, nullptr));
    EXPECT_EQ(d->get(1)->getServiceID(), 0x0003);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(NVODReferenceDescriptor, PartialItemFails)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x4B, {0x04, 0x21, 0x04, 0x22, 0xE5, 0x81, 0x04}));
    U16 code = 0;
    EXPECT_EQ(TNVODReferenceDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TNVODReferenceDescriptorItem::parse: Descriptor length not valid: 1. Aborting!",
                    "ISDBTUtils: TNVODReferenceDescriptor::parse: Invalid item. Aborting!");
}
