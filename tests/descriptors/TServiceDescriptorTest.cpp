#include <gtest/gtest.h>

#include <descriptors/TBouquetNameDescriptor.h>
#include <descriptors/TServiceDescriptor.h>
#include <descriptors/TTimeShiftedServiceDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ServiceDescriptor, DecodesTypeProviderAndName)
{
    LogCapture log;
    ExactBuffer data(
        descriptor(0x48, {0x01, 8, 'T', 'V', ' ', 'G', 'l', 'o', 'b', 'o', 5, 'G', 'l', 'o', 'b', 'o'}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TServiceDescriptor* d = TServiceDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 15u);
    EXPECT_EQ(d->getServiceType(), TServiceDescriptor::SERVICE_DIGITAL_TV);
    EXPECT_EQ(d->getServiceProviderName(), "TV Globo");
    EXPECT_EQ(d->getServiceName(), "Globo");
    EXPECT_NO_LOG(log);
    delete d;
    EXPECT_EQ(TServiceDescriptor::SERVICE_DATA_SERVICE_FOR_ANTECIPATED_STORAGE, 0xA8);
    EXPECT_EQ(TServiceDescriptor::SERVICE_ADVANCED_CODING_DIGITAL_NVOD_HD_REFERENCE_TV, 0x1B);
    EXPECT_EQ(TServiceDescriptor::SERVICE_DATA, 0xC0);
}

TEST(ServiceDescriptor, Failures)
{
    LogCapture log;
    U16 code = 0;
    // The provider name takes every byte: nothing is left for the name.
    ExactBuffer noName(descriptor(0x48, {0x01, 2, 'T', 'V'}));
    EXPECT_EQ(TServiceDescriptor::parse(noName.data(), noName.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TServiceDescriptor::parse: Longer data length is required: 0 < 1. Aborting!");

    log.clear();
    ExactBuffer longProvider(descriptor(0x48, {0x01, 5, 'T'}));
    EXPECT_EQ(TServiceDescriptor::parse(longProvider.data(), longProvider.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 5 > 1. "
                    "Aborting!",
                    "ISDBTUtils: TServiceDescriptor:: parse: ERROR: parsing Service Provider Name. Aborting!");

    log.clear();
    ExactBuffer longName(descriptor(0x48, {0x01, 0, 3, 'G'}));
    EXPECT_EQ(TServiceDescriptor::parse(longName.data(), longName.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 3 > 1. "
                    "Aborting!",
                    "ISDBTUtils: TServiceDescriptor:: parse: ERROR: parsing Service Name. Aborting!");
}

TEST(ServiceDescriptor, A255ByteProviderLeavesTheNameBoundUnreducedButInsideTheBuffer)
{
    LogCapture log;
    // Provider: length 255 + 255 bytes = 256, which the name bound subtracts
    // as 0; the name then claims 100 bytes where 1 is left.
    Bytes bytes = {0x48, 0x03, 0xA1, 255};
    bytes.insert(bytes.end(), 255, 'p');
    bytes.push_back(100);
    ExactBuffer data(bytes);
    U16 code = 0;
    EXPECT_EQ(TServiceDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TServiceDescriptor::parse: Longer data length is required: 1 < 101. Aborting!");

    // With the name's bytes in the buffer past dataLength, it is read.
    Bytes longer = bytes;
    longer.insert(longer.end(), 100, 'n');
    ExactBuffer section(longer);
    U32 parsed = 0;
    TServiceDescriptor* d =
        TServiceDescriptor::parse(section.data(), data.size(), &parsed, &code, section.data() + section.size());
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getServiceProviderName().size(), 255u);
    EXPECT_EQ(d->getServiceName(), std::string(100, 'n'));
    EXPECT_EQ(parsed, 101u); // (256 + 101) kept to 8 bits
    delete d;
}

TEST(BouquetNameDescriptor, TakesTheWholeBodyAndReportsItInEightBits)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x47, {'S', 'B', 'T', 'V', 'D'}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TBouquetNameDescriptor* d = TBouquetNameDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->getBouquetName(), "SBTVD");
    delete d;

    // Handed 300 bytes on its own: the whole run is the name.
    Bytes bytes = {0x47, 0x01};
    bytes.insert(bytes.end(), 300, 'b');
    ExactBuffer big(bytes);
    d = TBouquetNameDescriptor::parse(big.data(), big.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getBouquetName().size(), 300u);
    EXPECT_EQ(parsed, 44u);
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(TimeShiftedServiceDescriptor, DecodesTheReferenceService)
{
    ExactBuffer data(descriptor(0x4C, {0xE5, 0x80}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TTimeShiftedServiceDescriptor* d = TTimeShiftedServiceDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 2u);
    EXPECT_EQ(d->getReferenceServiceID(), 0xE580);
    delete d;
    ExactBuffer tooShort(descriptor(0x4C, {0xE5}));
    EXPECT_EQ(TTimeShiftedServiceDescriptor::parse(tooShort.data(), tooShort.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
}
