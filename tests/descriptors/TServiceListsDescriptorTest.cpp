#include <gtest/gtest.h>

#include <descriptors/TCountryAvailabilityDescriptor.h>
#include <descriptors/TNVODReferenceDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

TEST(CountryAvailabilityDescriptor, DecodesFlagAndCodesReportsZeroAndRefusesAPartialCode)
{
    LogCapture log;
    Parsed<TCountryAvailabilityDescriptor> r({0x80, 'B', 'R', 'A', 'A', 'R', 'G'});
    ASSERT_TRUE(r.decoded(0u));
    TCountryAvailabilityDescriptor* d = r.object.get();
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

    expectRefused<TCountryAvailabilityDescriptor>({0x00, 'B', 'R', 'A', 'P'}, kDescriptorLength, {});
    // Inside a section the partial code is refused without reading the
    // following bytes: here the limit claims more than the allocation holds,
    // so a read past the descriptor would be caught.
    ExactBuffer partial(descriptor(0x49, {0x00, 'B', 'R', 'A', 'P'}));
    U16 code = 0;
    EXPECT_EQ(TCountryAvailabilityDescriptor::parse(partial.data(), 7, nullptr, &code, partial.data() + 64), nullptr);
    EXPECT_EQ(code, kDescriptorLength);
    EXPECT_NO_LOG(log);
}

TEST(NVODReferenceDescriptor, DecodesItemsInArrivalOrder)
{
    LogCapture log;
    Parsed<TNVODReferenceDescriptor> r({0x04, 0x21, 0x04, 0x22, 0xE5, 0x81, 0x04, 0x21, 0x04, 0x22, 0xE5, 0x80});
    ASSERT_TRUE(r.decoded(6u)); // the last item's length
    TNVODReferenceDescriptor* d = r.object.get();
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

    // A partial item fails.
    expectRefused<TNVODReferenceDescriptor>(
        {0x04, 0x21, 0x04, 0x22, 0xE5, 0x81, 0x04}, kDescriptorLength,
        {"ISDBTUtils: TNVODReferenceDescriptorItem::parse: Descriptor length not valid: 1. Aborting!",
         "ISDBTUtils: TNVODReferenceDescriptor::parse: Invalid item. Aborting!"});
}
