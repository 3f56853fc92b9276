#include <gtest/gtest.h>

#include <descriptors/TLogoTransmissionDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

using Result = Parsed<TLogoTransmissionDescriptor>;

TEST(LogoTransmissionDescriptor, DecodesEachScheme)
{
    LogCapture log;
    Result cdt1({0x01, 0xFF, 0x05, 0xF1, 0x23, 0x00, 0x07});
    ASSERT_TRUE(cdt1.decoded(7u));
    EXPECT_EQ(cdt1.object->getLogoTransmissionType(), TLogoTransmissionDescriptor::TYPE_CDT1);
    EXPECT_EQ(cdt1.object->getLogoID(), 0x105);
    EXPECT_EQ(cdt1.object->getLogoVersion(), 0x123);
    EXPECT_EQ(cdt1.object->getDownloadDataID(), 7);
    EXPECT_EQ(cdt1.object->getLogoData(), nullptr);

    Result cdt2({0x02, 0xFE, 0x2A});
    ASSERT_TRUE(cdt2.decoded(3u));
    EXPECT_EQ(cdt2.object->getLogoID(), 0x02A);
    EXPECT_EQ(cdt2.object->getLogoVersion(), 0);

    Result simple({0x03, 'L', 'O', 'G', 'O'});
    ASSERT_TRUE(simple.decoded(5u));
    EXPECT_EQ(block(simple.object->getLogoData(), simple.object->getLogoDataLength()), "LOGO");

    Result empty({0x03});
    ASSERT_TRUE(empty.decoded(1u));
    EXPECT_EQ(empty.object->getLogoData(), nullptr);
    EXPECT_NO_LOG(log);

    Result other({0x1A, 0x01, 0x02});
    ASSERT_TRUE(other.decoded(1u));
    EXPECT_EQ(other.object->getLogoTransmissionType(), 0x1A);
    EXPECT_WARNINGS(log, "ISDBTUtils: TLogoTransmissionDescriptor::parse: Unsupported Logo Transmission Type: 0x1A "
                         "(26)");
}

TEST(LogoTransmissionDescriptor, ShortSchemesNameSixBytesAndStopAtTheBufferEnd)
{
    const std::string line = "ISDBTUtils: TLogoTransmissionDescriptor::parse: Longer data length is required: ";
    expectRefused<TLogoTransmissionDescriptor>({0x01, 0xFF, 0x05, 0xF1, 0x23, 0x00}, kDescriptorLength,
                                               {line + "5 < 6. Aborting!"});
    expectRefused<TLogoTransmissionDescriptor>({0x02, 0xFE}, kDescriptorLength, {line + "1 < 6. Aborting!"});
    // The descriptor runs past the end of the outermost buffer.
    expectRefusedWithin<TLogoTransmissionDescriptor>({0xCF, 0x07, 0x01, 0xFF, 0x05, 0xF1}, 9, kDescriptorLength,
                                                     {line + "3 < 6. Aborting!"});
    expectRefusedWithin<TLogoTransmissionDescriptor>({0xCF, 0x05, 0x03, 'L', 'O'}, 7, kDescriptorLength,
                                                     {line + "2 < 4. Aborting!"});
}
