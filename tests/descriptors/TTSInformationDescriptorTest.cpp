#include <gtest/gtest.h>

#include <descriptors/TTSInformationDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

using Item = TTSInformationDescriptorItem;

TEST(TSInformationDescriptor, NameAndTwoTransmissionTypes)
{
    LogCapture log;
    // Remote key 5, name "Vuro HD" (7 << 2 | 2 types); layer A 64QAM with the
    // one-seg service, layer C QPSK with two services.
    Parsed<TTSInformationDescriptor> r({0x05, (7 << 2) | 2, 'V', 'u', 'r', 'o', ' ', 'H', 'D', 0x0F, 0x01, 0xE5, 0x98,
                                        0xA0, 0x02, 0xE5, 0x80, 0xE5, 0x81});
    ASSERT_TRUE(r.decoded(19u));
    TTSInformationDescriptor* d = r.object.get();
    EXPECT_EQ(d->getRemoteControlKeyID(), 5);
    EXPECT_EQ(d->getTransportStreamName(), "Vuro HD");
    EXPECT_EQ(d->getTxInformation(), TISDBTTable::TX_TYPE_LAYERAB);
    ASSERT_EQ(d->getTransmissionTypeCount(), 2u);
    Item* a = d->getTransmissionType(0);
    EXPECT_EQ(a->getTransmissionParameterType(), Item::TRANSMISSION_PARAMETER_TYPE_A);
    EXPECT_EQ(a->getModulationSystem(), Item::MODULATION_SYSTEM_64QAM);
    ASSERT_EQ(a->getNumberOfServices(), 1);
    EXPECT_EQ(a->getServices()[0], 0xE598);
    Item* c = d->getTransmissionType(1);
    EXPECT_EQ(c->getTransmissionTypeInfo(), 0xA0);
    EXPECT_EQ(c->getTransmissionParameterType(), Item::TRANSMISSION_PARAMETER_TYPE_C);
    EXPECT_EQ(c->getModulationSystem(), Item::MODULATION_SYSTEM_QPSK);
    ASSERT_EQ(c->getNumberOfServices(), 2);
    EXPECT_EQ(c->getServices()[1], 0xE581);
    EXPECT_EQ(d->getTransmissionType(2), nullptr);
    EXPECT_NO_LOG(log);

    EXPECT_EQ(d->removeTransmissionType(0), TRUE);
    EXPECT_EQ(d->getTransmissionType(0), c);
    EXPECT_EQ(d->removeTransmissionType(1), FALSE);
}

TEST(TSInformationDescriptor, EightBytesAtLeastNoTypeIsLayerInvalidAndFailures)
{
    Parsed<TTSInformationDescriptor> none({0x01, 6 << 2, 'R', 'e', 'd', 'e', ' ', '1'});
    ASSERT_TRUE(none.decoded(8u));
    EXPECT_EQ(none.object->getTransportStreamName(), "Rede 1");
    EXPECT_EQ(none.object->getTransmissionTypeCount(), 0u);
    EXPECT_EQ(none.object->getTxInformation(), TISDBTTable::TX_TYPE_LAYERINVALID);

    // A valid 7-byte body (no name, one type, one service) is refused.
    expectRefused<TTSInformationDescriptor>({0x01, 0x01, 0x0F, 0x01, 0xE5, 0x98, 0x00}, kDescriptorLength,
                                            {kHeaderLine + "(2) Longer data length is required: 9 < 10. Aborting!"});

    expectRefused<TTSInformationDescriptor>(
        {0x01, 9 << 2, 'a', 'b', 'c', 'd', 'e', 'f'}, kString,
        {kStringLine + "9 > 6. Aborting!",
         "ISDBTUtils: TTSInformationDescriptor:: parse: ERROR: parsing TS Name. Aborting!"});
    // Three types announced; the third finds nothing left.
    expectRefused<TTSInformationDescriptor>(
        {0x01, (0 << 2) | 3, 0x0F, 0x01, 0xE5, 0x98, 0x8F, 0x00}, kDescriptorLength,
        {"ISDBTUtils: TTSInformationDescriptorItem::parse: Item length not valid: 0. Aborting!",
         "ISDBTUtils: TTSInformationDescriptor::parse: Invalid item. Aborting!"});
}

TEST(TSInformationDescriptorItem, ServicesAreCheckedAgainstTheBufferOnly)
{
    LogCapture log;
    ExactBuffer data({0x4F, 0x02, 0xE5, 0x98, 0xE5, 0x99});
    U32 length = 0;
    U16 code = 0;
    // Two bytes of dataLength admit the item; its services lie in the buffer.
    std::unique_ptr<Item> item(Item::parse(data.data(), 2, &length, &code, data.data() + data.size()));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(length, 6u);
    EXPECT_EQ(item->getTransmissionParameterType(), Item::TRANSMISSION_PARAMETER_TYPE_B);
    EXPECT_EQ(item->getServices()[1], 0xE599);

    EXPECT_EQ(Item::parse(data.data(), 5, &length, &code), nullptr);
    EXPECT_EQ(code, kDataLength);
    EXPECT_WARNINGS(log, "ISDBTUtils: TTSInformationDescriptorItem::parse: Item length not valid: 5. Aborting!");
}
