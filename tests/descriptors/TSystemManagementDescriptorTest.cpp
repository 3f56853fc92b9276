#include <gtest/gtest.h>

#include <descriptors/TSystemManagementDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(SystemManagementDescriptor, IdentifierAndAdditionalInformation)
{
    LogCapture log;
    // Open broadcasting (flag 0), identifier 3 (ISDB), additional id 0x01.
    ExactBuffer data(descriptor(0xFE, {0x03, 0x01, 0xAA, 0x55, 0x00}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TSystemManagementDescriptor* d = TSystemManagementDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->getSystemManagementID(), 0x0301);
    EXPECT_EQ(d->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_OPEN);
    EXPECT_EQ((d->getSystemManagementID() >> 8) & 0x3F, TSystemManagementDescriptor::IDENTIFIER_ISDB);
    ASSERT_EQ(d->getAdditionalIdentificationInfoSize(), 3);
    EXPECT_EQ(Bytes(d->getAdditionalIdentificationInfo(), d->getAdditionalIdentificationInfo() + 3),
              (Bytes{0xAA, 0x55, 0x00}));
    EXPECT_NE(d->getAdditionalIdentificationInfo(), data.data() + 4); // a copy
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(SystemManagementDescriptor, IdentifierOnlyAndTooShort)
{
    ExactBuffer only(descriptor(0xFE, {0x43, 0x01}));
    U32 parsed = 0;
    TSystemManagementDescriptor* d = TSystemManagementDescriptor::parse(only.data(), only.size(), &parsed, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 2u);
    EXPECT_EQ(d->getSystemManagementID() >> 14, TSystemManagementDescriptor::FLAG_CLOSE_1);
    EXPECT_EQ(d->getAdditionalIdentificationInfoSize(), 0);
    EXPECT_EQ(d->getAdditionalIdentificationInfo(), nullptr);
    delete d;

    ExactBuffer shortOne(descriptor(0xFE, {0x03}));
    U16 code = 0;
    EXPECT_EQ(TSystemManagementDescriptor::parse(shortOne.data(), shortOne.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
}
