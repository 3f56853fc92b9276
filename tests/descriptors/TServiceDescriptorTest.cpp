#include <gtest/gtest.h>

#include <descriptors/TBouquetNameDescriptor.h>
#include <descriptors/TServiceDescriptor.h>
#include <descriptors/TTimeShiftedServiceDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

const std::string kLengthLine = "ISDBTUtils: TServiceDescriptor::parse: Longer data length is required: ";

} // namespace

TEST(ServiceDescriptor, DecodesTypeProviderAndName)
{
    LogCapture log;
    Parsed<TServiceDescriptor> r({0x01, 8, 'T', 'V', ' ', 'G', 'l', 'o', 'b', 'o', 5, 'G', 'l', 'o', 'b', 'o'});
    ASSERT_TRUE(r.decoded(15u));
    EXPECT_EQ(r.object->getServiceType(), TServiceDescriptor::SERVICE_DIGITAL_TV);
    EXPECT_EQ(r.object->getServiceProviderName(), "TV Globo");
    EXPECT_EQ(r.object->getServiceName(), "Globo");
    EXPECT_NO_LOG(log);
    EXPECT_EQ(TServiceDescriptor::SERVICE_DATA_SERVICE_FOR_ANTECIPATED_STORAGE, 0xA8);
    EXPECT_EQ(TServiceDescriptor::SERVICE_ADVANCED_CODING_DIGITAL_NVOD_HD_REFERENCE_TV, 0x1B);
    EXPECT_EQ(TServiceDescriptor::SERVICE_DATA, 0xC0);
}

TEST(ServiceDescriptor, Failures)
{
    // The provider name takes every byte: nothing is left for the name.
    expectRefused<TServiceDescriptor>({0x01, 2, 'T', 'V'}, kDescriptorLength, {kLengthLine + "0 < 1. Aborting!"});
    expectRefused<TServiceDescriptor>(
        {0x01, 5, 'T'}, kString,
        {kStringLine + "5 > 1. Aborting!",
         "ISDBTUtils: TServiceDescriptor:: parse: ERROR: parsing Service Provider Name. Aborting!"});
    expectRefused<TServiceDescriptor>(
        {0x01, 0, 3, 'G'}, kString,
        {kStringLine + "3 > 1. Aborting!",
         "ISDBTUtils: TServiceDescriptor:: parse: ERROR: parsing Service Name. Aborting!"});
}

TEST(ServiceDescriptor, A255ByteProviderLeavesTheNameBoundUnreducedButInsideTheBuffer)
{
    // Provider: length 255 + 255 bytes = 256, which the name bound subtracts
    // as 0; the name then claims 100 bytes where 1 is left.
    Bytes bytes = {0x48, 0x03, 0xA1, 255};
    bytes.insert(bytes.end(), 255, 'p');
    bytes.push_back(100);
    expectRefusedWithin<TServiceDescriptor>(bytes, 0, kDescriptorLength, {kLengthLine + "1 < 101. Aborting!"});

    // With the name's bytes in the buffer past dataLength, it is read.
    const U32 length = static_cast<U32>(bytes.size());
    bytes.insert(bytes.end(), 100, 'n');
    Parsed<TServiceDescriptor> r(bytes, length);
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.object->getServiceProviderName().size(), 255u);
    EXPECT_EQ(r.object->getServiceName(), std::string(100, 'n'));
    EXPECT_EQ(r.parsedLength, 101u); // (256 + 101) kept to 8 bits
}

TEST(BouquetNameDescriptor, TakesTheWholeBodyAndReportsItInEightBits)
{
    LogCapture log;
    Parsed<TBouquetNameDescriptor> r({'S', 'B', 'T', 'V', 'D'});
    ASSERT_TRUE(r.decoded(5u));
    EXPECT_EQ(r.object->getBouquetName(), "SBTVD");

    // Handed 300 bytes on its own: the whole run is the name.
    Bytes bytes = {0x47, 0x01};
    bytes.insert(bytes.end(), 300, 'b');
    Parsed<TBouquetNameDescriptor> big(bytes, 0);
    ASSERT_NE(big.object, nullptr);
    EXPECT_EQ(big.object->getBouquetName().size(), 300u);
    EXPECT_EQ(big.parsedLength, 44u);
    EXPECT_NO_LOG(log);
}

TEST(TimeShiftedServiceDescriptor, DecodesTheReferenceService)
{
    Parsed<TTimeShiftedServiceDescriptor> r({0xE5, 0x80});
    ASSERT_TRUE(r.decoded(2u));
    EXPECT_EQ(r.object->getReferenceServiceID(), 0xE580);
    Parsed<TTimeShiftedServiceDescriptor> tooShort({0xE5});
    EXPECT_TRUE(tooShort.refused(kDescriptorLength));
}
