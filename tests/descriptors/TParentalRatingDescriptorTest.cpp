#include <gtest/gtest.h>

#include <descriptors/TParentalRatingDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ParentalRatingDescriptor, DecodesRatingsInArrivalOrder)
{
    LogCapture log;
    Parsed<TParentalRatingDescriptor> r({'B', 'R', 'A', 0x53, 'A', 'R', 'G', 0x21});
    ASSERT_TRUE(r.decoded(4u)); // the last item's length
    TParentalRatingDescriptor* d = r.object.get();
    ASSERT_EQ(d->size(), 2u);
    EXPECT_EQ(d->get(0)->getCountryCode(), "BRA");
    EXPECT_EQ(d->get(0)->getRating(), TParentalRatingDescriptor::PARENTAL_RATING_12);
    EXPECT_EQ(d->get(0)->getRatingContent(), TParentalRatingDescriptor::DESCRIPTION_SEX_DRUGS);
    EXPECT_EQ(d->get(1)->getCountryCode(), "ARG");
    EXPECT_EQ(d->get(1)->getRating(), TParentalRatingDescriptor::PARENTAL_RATING_L);
    EXPECT_EQ(d->get(1)->getRatingContent(), TParentalRatingDescriptor::DESCRIPTION_VIOLENCE);
    EXPECT_EQ(d->get(2), nullptr);

    ExactBuffer more({'P', 'R', 'Y', 0x76});
    TParentalRatingDescriptorItem* item =
        TParentalRatingDescriptorItem::parse(more.data(), more.size(), nullptr, nullptr);
    d->add(&item);
    d->add(nullptr);
    ASSERT_EQ(d->size(), 3u);
    EXPECT_EQ(d->get(2), item);
    EXPECT_EQ(item->getRating(), TParentalRatingDescriptor::PARENTAL_RATING_18);
    EXPECT_EQ(item->getRatingContent(), TParentalRatingDescriptor::DESCRIPTION_VIOLENCE_SEX_DRUGS);
    EXPECT_EQ(d->remove(0), TRUE);
    EXPECT_EQ(d->remove(2), FALSE);
    EXPECT_EQ(d->get(0)->getCountryCode(), "ARG");
    EXPECT_NO_LOG(log);
}

TEST(ParentalRatingDescriptor, Failures)
{
    // A header failure logs the descriptor's own line too.
    expectRefused<TParentalRatingDescriptor>(
        {'B', 'R', 'A'}, kDescriptorLength,
        {kHeaderLine + "(2) Longer data length is required: 5 < 6. Aborting!",
         "ISDBTUtils: TParentalRatingDescriptor::parse: parseCommonHeader: Invalid item. Aborting!"});
    expectRefused<TParentalRatingDescriptor>(
        {'B', 'R', 'A', 0x53, 'A'}, kDescriptorLength,
        {"ISDBTUtils: TParentalRatingDescriptorItem::parse: Descriptor length not valid: 1. Aborting!",
         "ISDBTUtils: TParentalRatingDescriptor::parse: Invalid item. Aborting!"});
}
