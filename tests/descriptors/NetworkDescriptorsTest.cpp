// The fixed-field network descriptors: network name, system management,
// linkage, terrestrial delivery system, partial reception; and the bounded
// read every network descriptor makes.
#include <gtest/gtest.h>

#include <VuroISDBT.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

using TDS = TTerrestrialDeliverySystemDescriptor;

TEST(NetworkNameDescriptor, TheWholeBodyIsTheRawName)
{
    LogCapture log;
    Parsed<TNetworkNameDescriptor> r({'R', 'e', 'd', 'e', ' ', 'V', 'u', 'R', 'O', 0x00, 0xE9});
    ASSERT_TRUE(r.decoded(11u));
    EXPECT_EQ(r.object->getNetworkName(), std::string("Rede VuRO\0\xE9", 11));
    EXPECT_NO_LOG(log);
}

TEST(SystemManagementDescriptor, IdentifierAndAdditionalInformation)
{
    // Open broadcasting (flag 0), ISDB identifier 3, additional id 0x01.
    Parsed<TSystemManagementDescriptor> r({0x03, 0x01, 0xAA, 0x55, 0x00});
    ASSERT_TRUE(r.decoded(5u));
    TSystemManagementDescriptor* d = r.object.get();
    EXPECT_EQ(d->getSystemManagementID(), 0x0301);
    EXPECT_EQ(d->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_OPEN);
    EXPECT_EQ((d->getSystemManagementID() >> 8) & 0x3F, TSystemManagementDescriptor::IDENTIFIER_ISDB);
    EXPECT_EQ(block(d->getAdditionalIdentificationInfo(), d->getAdditionalIdentificationInfoSize()),
              std::string("\xAA\x55\x00", 3));

    Parsed<TSystemManagementDescriptor> only({0x43, 0x01});
    ASSERT_NE(only.object, nullptr);
    EXPECT_EQ(only.object->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_CLOSE_1);
    EXPECT_EQ(only.object->getAdditionalIdentificationInfoSize(), 0);
    EXPECT_EQ(only.object->getAdditionalIdentificationInfo(), nullptr);
}

TEST(LinkageDescriptor, IdentifiersTypeAndPrivateData)
{
    Parsed<TLinkageDescriptor> r({0x06, 0x40, 0x06, 0x41, 0xE5, 0x80, 0x06, 0x12, 0x34});
    ASSERT_TRUE(r.decoded(9u));
    TLinkageDescriptor* d = r.object.get();
    EXPECT_EQ(d->getTransportStreamID(), 0x0640);
    EXPECT_EQ(d->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(d->getServiceID(), 0xE580);
    EXPECT_EQ(d->getLinkageType(), TLinkageDescriptor::SERVICE_DATA_BROADCAST);
    EXPECT_EQ(block(d->getPrivateData(), d->getPrivateDataSize()), "\x12\x34");

    Parsed<TLinkageDescriptor> seven({0x00, 0x01, 0x00, 0x02, 0x00, 0x03, 0xFE});
    ASSERT_NE(seven.object, nullptr);
    EXPECT_EQ(seven.object->getLinkageType(), TLinkageDescriptor::SERVICE_RETRANSMISSION);
    EXPECT_EQ(seven.object->getPrivateDataSize(), 0);
    EXPECT_EQ(seven.object->getPrivateData(), nullptr);
}

TEST(TerrestrialDeliverySystemDescriptor, AreaGuardModeAndFrequencies)
{
    // Area code 0x123, guard interval 1/16, mode 1; frequency codes 0x0BC2 and 0x0E9E.
    Parsed<TDS> r({0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E});
    ASSERT_TRUE(r.decoded(6u));
    EXPECT_EQ(r.object->getAreaCode(), 0x123);
    EXPECT_EQ(r.object->getGuardInterval(), TDS::GUARD_INTERNVAL_1_16);
    EXPECT_EQ(r.object->getTransmissionMode(), TDS::TRANSMISSION_MODE_1);
    ASSERT_EQ(r.object->getFrequencyCounter(), 2);
    EXPECT_EQ(r.object->getFrequencies()[0], 0x0BC2);
    EXPECT_EQ(r.object->getFrequencies()[1], 0x0E9E);

    // The last byte of an odd count holds no whole frequency and is not read.
    Parsed<TDS> odd({0xFF, 0xFE, 0x0B, 0xC2, 0x0E});
    ASSERT_TRUE(odd.decoded(5u));
    EXPECT_EQ(odd.object->getAreaCode(), 0xFFF);
    EXPECT_EQ(odd.object->getGuardInterval(), TDS::GUARD_INTERNVAL_1_4);
    EXPECT_EQ(odd.object->getTransmissionMode(), TDS::TRANSMISSION_MODE_3);
    ASSERT_EQ(odd.object->getFrequencyCounter(), 1);
    EXPECT_EQ(odd.object->getFrequencies()[0], 0x0BC2);

    // Area code, guard interval and mode alone (descriptor_length 2) are
    // under the minimum of 4: at least one frequency is required.
    expectRefused<TDS>({0x12, 0x34}, kDescriptorLength,
                       {kHeaderLine + "(2) Longer data length is required: 4 < 6. Aborting!"});
}

TEST(PartialReceptionDescriptor, OneSegServicesAndAnOddTrailingByte)
{
    Parsed<TPartialReceptionDescriptor> r({0xE5, 0x98, 0xE5, 0x99, 0xE5});
    ASSERT_TRUE(r.decoded(5u));
    ASSERT_EQ(r.object->getServiceIDCount(), 2);
    EXPECT_EQ(r.object->getServiceIDs()[0], 0xE598);
    EXPECT_EQ(r.object->getServiceIDs()[1], 0xE599);
}

// Every network descriptor handed more bytes than its buffer holds fails
// before reading its body past the buffer.
template <class D>
class NetworkDescriptorBounds : public ::testing::Test {};

using NetworkDescriptorTypes =
    ::testing::Types<TNetworkNameDescriptor, TSystemManagementDescriptor, TLinkageDescriptor, TDS,
                     TEmergencyInformationDescriptor, TPartialReceptionDescriptor, TTSInformationDescriptor>;
TYPED_TEST_SUITE(NetworkDescriptorBounds, NetworkDescriptorTypes);

TYPED_TEST(NetworkDescriptorBounds, BodyPastTheLimitFailsWithTheLengthCode)
{
    const Bytes whole = descriptor(TypeParam::DESCRIPTOR_TAG, Bytes(TypeParam::MINIMUM_DESCRIPTOR_LENGTH + 6, 0x00));
    // The buffer ends one byte before the descriptor does.
    expectRefusedWithin<TypeParam>(Bytes(whole.begin(), whole.end() - 1), static_cast<U32>(whole.size()),
                                   kDescriptorLength,
                                   {kHeaderLine + "(4) Longer data length is required: " +
                                    std::to_string(whole.size()) + " < " + std::to_string(whole.size() - 1) +
                                    ". Aborting!"});
}
