#include <gtest/gtest.h>

#include <descriptors/TLogoTransmissionDescriptor.h>

#include "../support/LogCapture.h"
#include "StreamDescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TLogoTransmissionDescriptor>;

} // namespace

TEST(LogoTransmissionDescriptor, DecodesEachScheme)
{
    LogCapture log;
    Result cdt1({0x01, 0xFF, 0x05, 0xF1, 0x23, 0x00, 0x07});
    ASSERT_NE(cdt1.object, nullptr);
    EXPECT_EQ(cdt1.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(cdt1.parsedLength, 7u);
    EXPECT_EQ(cdt1.object->getLogoTransmissionType(), TLogoTransmissionDescriptor::TYPE_CDT1);
    EXPECT_EQ(cdt1.object->getLogoID(), 0x105);
    EXPECT_EQ(cdt1.object->getLogoVersion(), 0x123);
    EXPECT_EQ(cdt1.object->getDownloadDataID(), 7);
    EXPECT_EQ(cdt1.object->getLogoData(), nullptr);

    Result cdt2({0x02, 0xFE, 0x2A});
    ASSERT_NE(cdt2.object, nullptr);
    EXPECT_EQ(cdt2.parsedLength, 3u);
    EXPECT_EQ(cdt2.object->getLogoID(), 0x02A);
    EXPECT_EQ(cdt2.object->getLogoVersion(), 0);

    Result simple({0x03, 'L', 'O', 'G', 'O'});
    ASSERT_NE(simple.object, nullptr);
    EXPECT_EQ(simple.parsedLength, 5u);
    ASSERT_EQ(simple.object->getLogoDataLength(), 4);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(simple.object->getLogoData()), 4), "LOGO");

    Result empty({0x03});
    ASSERT_NE(empty.object, nullptr);
    EXPECT_EQ(empty.parsedLength, 1u);
    EXPECT_EQ(empty.object->getLogoData(), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(LogoTransmissionDescriptor, OtherTypesAreReportedAndKept)
{
    LogCapture log;
    Result r({0x1A, 0x01, 0x02});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(r.parsedLength, 1u);
    EXPECT_EQ(r.object->getLogoTransmissionType(), 0x1A);
    EXPECT_WARNINGS(log, "ISDBTUtils: TLogoTransmissionDescriptor::parse: Unsupported Logo Transmission Type: 0x1A "
                         "(26)");
}

TEST(LogoTransmissionDescriptor, ShortSchemesNameSixBytes)
{
    LogCapture log;
    Result cdt1({0x01, 0xFF, 0x05, 0xF1, 0x23, 0x00});
    EXPECT_EQ(cdt1.object, nullptr);
    EXPECT_EQ(cdt1.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    Result cdt2({0x02, 0xFE});
    EXPECT_EQ(cdt2.object, nullptr);
    EXPECT_EQ(cdt2.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TLogoTransmissionDescriptor::parse: Longer data length is required: 5 < 6. "
                    "Aborting!",
                    "ISDBTUtils: TLogoTransmissionDescriptor::parse: Longer data length is required: 1 < 6. "
                    "Aborting!");
}

TEST(LogoTransmissionDescriptor, StopsAtTheEndOfTheOutermostBuffer)
{
    LogCapture log;
    ExactBuffer cdt1({0xCF, 0x07, 0x01, 0xFF, 0x05, 0xF1});
    U16 code = 0;
    EXPECT_EQ(TLogoTransmissionDescriptor::parse(cdt1.data(), 9, nullptr, &code, cdt1.data() + cdt1.size()),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    ExactBuffer simple({0xCF, 0x05, 0x03, 'L', 'O'});
    EXPECT_EQ(TLogoTransmissionDescriptor::parse(simple.data(), 7, nullptr, &code, simple.data() + simple.size()),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TLogoTransmissionDescriptor::parse: Longer data length is required: 3 < 6. "
                    "Aborting!",
                    "ISDBTUtils: TLogoTransmissionDescriptor::parse: Longer data length is required: 2 < 4. "
                    "Aborting!");
}
