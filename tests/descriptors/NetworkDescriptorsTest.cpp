// The fixed-field network descriptors: network name, system management,
// linkage, terrestrial delivery system, partial reception; and the bounded
// read every network descriptor makes.
#include <gtest/gtest.h>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

using TDS = TTerrestrialDeliverySystemDescriptor;

TEST(NetworkNameDescriptor, TheWholeBodyIsTheRawName)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x40, {'R', 'e', 'd', 'e', ' ', 'V', 'u', 'R', 'O', 0x00, 0xE9}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TNetworkNameDescriptor* d = TNetworkNameDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 11u);
    EXPECT_EQ(d->getNetworkName(), std::string("Rede VuRO\0\xE9", 11));
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(SystemManagementDescriptor, IdentifierAndAdditionalInformation)
{
    // Open broadcasting (flag 0), ISDB identifier 3, additional id 0x01.
    ExactBuffer data(descriptor(0xFE, {0x03, 0x01, 0xAA, 0x55, 0x00}));
    U32 parsed = 0;
    TSystemManagementDescriptor* d = TSystemManagementDescriptor::parse(data.data(), data.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->getSystemManagementID(), 0x0301);
    EXPECT_EQ(d->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_OPEN);
    EXPECT_EQ((d->getSystemManagementID() >> 8) & 0x3F, TSystemManagementDescriptor::IDENTIFIER_ISDB);
    ASSERT_EQ(d->getAdditionalIdentificationInfoSize(), 3);
    EXPECT_EQ(Bytes(d->getAdditionalIdentificationInfo(), d->getAdditionalIdentificationInfo() + 3),
              (Bytes{0xAA, 0x55, 0x00}));
    delete d;

    ExactBuffer only(descriptor(0xFE, {0x43, 0x01}));
    d = TSystemManagementDescriptor::parse(only.data(), only.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_CLOSE_1);
    EXPECT_EQ(d->getAdditionalIdentificationInfoSize(), 0);
    EXPECT_EQ(d->getAdditionalIdentificationInfo(), nullptr);
    delete d;
}

TEST(LinkageDescriptor, IdentifiersTypeAndPrivateData)
{
    ExactBuffer data(descriptor(0x4A, {0x06, 0x40, 0x06, 0x41, 0xE5, 0x80, 0x06, 0x12, 0x34}));
    U32 parsed = 0;
    TLinkageDescriptor* d = TLinkageDescriptor::parse(data.data(), data.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 9u);
    EXPECT_EQ(d->getTransportStreamID(), 0x0640);
    EXPECT_EQ(d->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(d->getServiceID(), 0xE580);
    EXPECT_EQ(d->getLinkageType(), TLinkageDescriptor::SERVICE_DATA_BROADCAST);
    ASSERT_EQ(d->getPrivateDataSize(), 2);
    EXPECT_EQ(Bytes(d->getPrivateData(), d->getPrivateData() + 2), (Bytes{0x12, 0x34}));
    delete d;

    ExactBuffer seven(descriptor(0x4A, {0x00, 0x01, 0x00, 0x02, 0x00, 0x03, 0xFE}));
    d = TLinkageDescriptor::parse(seven.data(), seven.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getLinkageType(), TLinkageDescriptor::SERVICE_RETRANSMISSION);
    EXPECT_EQ(d->getPrivateDataSize(), 0);
    EXPECT_EQ(d->getPrivateData(), nullptr);
    delete d;
}

TEST(TerrestrialDeliverySystemDescriptor, AreaGuardModeAndFrequencies)
{
    // Area code 0x123, guard interval 1/16, mode 1; frequency codes 0x0BC2 and 0x0E9E.
    ExactBuffer data(descriptor(0xFA, {0x12, 0x34, 0x0B, 0xC2, 0x0E, 0x9E}));
    U32 parsed = 0;
    TDS* d = TDS::parse(data.data(), data.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 6u);
    EXPECT_EQ(d->getAreaCode(), 0x123);
    EXPECT_EQ(d->getGuardInterval(), TDS::GUARD_INTERNVAL_1_16);
    EXPECT_EQ(d->getTransmissionMode(), TDS::TRANSMISSION_MODE_1);
    ASSERT_EQ(d->getFrequencyCounter(), 2);
    EXPECT_EQ(d->getFrequencies()[0], 0x0BC2);
    EXPECT_EQ(d->getFrequencies()[1], 0x0E9E);
    delete d;

    // The last byte of an odd count holds no whole frequency and is not read.
    ExactBuffer odd(descriptor(0xFA, {0xFF, 0xFE, 0x0B, 0xC2, 0x0E}));
    d = TDS::parse(odd.data(), odd.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->getAreaCode(), 0xFFF);
    EXPECT_EQ(d->getGuardInterval(), TDS::GUARD_INTERNVAL_1_4);
    EXPECT_EQ(d->getTransmissionMode(), TDS::TRANSMISSION_MODE_3);
    ASSERT_EQ(d->getFrequencyCounter(), 1);
    EXPECT_EQ(d->getFrequencies()[0], 0x0BC2);
    delete d;
}

TEST(PartialReceptionDescriptor, OneSegServicesAndAnOddTrailingByte)
{
    ExactBuffer data(descriptor(0xFB, {0xE5, 0x98, 0xE5, 0x99, 0xE5}));
    U32 parsed = 0;
    TPartialReceptionDescriptor* d = TPartialReceptionDescriptor::parse(data.data(), data.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 5u);
    ASSERT_EQ(d->getServiceIDCount(), 2);
    EXPECT_EQ(d->getServiceIDs()[0], 0xE598);
    EXPECT_EQ(d->getServiceIDs()[1], 0xE599);
    delete d;
}

TEST(TerrestrialDeliverySystemDescriptor, AtLeastOneFrequencyIsRequired)
{
    LogCapture log;
    // Area code, guard interval and mode alone (descriptor_length 2) are
    // under the minimum of 4.
    ExactBuffer noFrequency(descriptor(0xFA, {0x12, 0x34}));
    U16 code = 0;
    EXPECT_EQ(TDS::parse(noFrequency.data(), noFrequency.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 4 < 6. "
                         "Aborting!");
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
    ExactBuffer data(Bytes(whole.begin(), whole.end() - 1));
    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TypeParam::parse(data.data(), whole.size(), nullptr, &code, data.data() + data.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (4) Longer data length is required: " +
                             std::to_string(whole.size()) + " < " + std::to_string(data.size()) + ". Aborting!");
}
