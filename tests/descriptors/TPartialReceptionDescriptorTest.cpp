#include <gtest/gtest.h>

#include <descriptors/TPartialReceptionDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(PartialReceptionDescriptor, OneSegServices)
{
    LogCapture log;
    ExactBuffer data(descriptor(0xFB, {0xE5, 0x98, 0xE5, 0x99}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TPartialReceptionDescriptor* d = TPartialReceptionDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 4u);
    ASSERT_EQ(d->getServiceIDCount(), 2);
    EXPECT_EQ(d->getServiceIDs()[0], 0xE598);
    EXPECT_EQ(d->getServiceIDs()[1], 0xE599);
    EXPECT_NO_LOG(log);
    delete d;

    // An odd trailing byte is not read.
    ExactBuffer odd(descriptor(0xFB, {0xE5, 0x98, 0xE5}));
    d = TPartialReceptionDescriptor::parse(odd.data(), odd.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 3u);
    ASSERT_EQ(d->getServiceIDCount(), 1);
    EXPECT_EQ(d->getServiceIDs()[0], 0xE598);
    delete d;
}
