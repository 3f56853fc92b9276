#include <gtest/gtest.h>

#include <descriptors/TLinkageDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(LinkageDescriptor, IdentifiersTypeAndPrivateData)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x4A, {0x06, 0x40, 0x06, 0x41, 0xE5, 0x80, 0x06, 0x12, 0x34}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TLinkageDescriptor* d = TLinkageDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 9u);
    EXPECT_EQ(d->getTransportStreamID(), 0x0640);
    EXPECT_EQ(d->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(d->getServiceID(), 0xE580);
    EXPECT_EQ(d->getLinkageType(), TLinkageDescriptor::SERVICE_DATA_BROADCAST);
    ASSERT_EQ(d->getPrivateDataSize(), 2);
    EXPECT_EQ(Bytes(d->getPrivateData(), d->getPrivateData() + 2), (Bytes{0x12, 0x34}));
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(LinkageDescriptor, SevenBytesHaveNoPrivateDataAndSixAreRefused)
{
    ExactBuffer seven(descriptor(0x4A, {0x00, 0x01, 0x00, 0x02, 0x00, 0x03, 0xFE}));
    TLinkageDescriptor* d = TLinkageDescriptor::parse(seven.data(), seven.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getLinkageType(), TLinkageDescriptor::SERVICE_RETRANSMISSION);
    EXPECT_EQ(d->getPrivateDataSize(), 0);
    EXPECT_EQ(d->getPrivateData(), nullptr);
    delete d;

    LogCapture log;
    ExactBuffer six(descriptor(0x4A, {0x00, 0x01, 0x00, 0x02, 0x00, 0x03}));
    U16 code = 0;
    EXPECT_EQ(TLinkageDescriptor::parse(six.data(), six.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 8 < 9. Aborting!");
}
