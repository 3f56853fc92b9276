#include <gtest/gtest.h>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

// Every network descriptor handed more bytes than its buffer holds fails
// before reading a byte of its body past the buffer.
template <class D>
class NetworkDescriptorBounds : public ::testing::Test {};

using NetworkDescriptors =
    ::testing::Types<TNetworkNameDescriptor, TSystemManagementDescriptor, TLinkageDescriptor,
                     TTerrestrialDeliverySystemDescriptor, TEmergencyInformationDescriptor,
                     TPartialReceptionDescriptor, TTSInformationDescriptor>;
TYPED_TEST_SUITE(NetworkDescriptorBounds, NetworkDescriptors);

TYPED_TEST(NetworkDescriptorBounds, BodyPastTheLimitFailsWithTheLengthCode)
{
    Bytes body(TypeParam::MINIMUM_DESCRIPTOR_LENGTH + 6, 0x00);
    const Bytes whole = descriptor(TypeParam::DESCRIPTOR_TAG, body);
    // The buffer ends one byte before the descriptor does.
    ExactBuffer data(Bytes(whole.begin(), whole.end() - 1));
    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TypeParam::parse(data.data(), whole.size(), nullptr, &code, data.data() + data.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (4) Longer data length is required: " +
                             std::to_string(whole.size()) + " < " + std::to_string(data.size()) + ". Aborting!");
}
