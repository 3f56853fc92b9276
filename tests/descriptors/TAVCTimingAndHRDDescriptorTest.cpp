#include <gtest/gtest.h>

#include <descriptors/TAACDescriptor.h>
#include <descriptors/TAVCTimingAndHRDDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

using Result = Parsed<TAVCTimingAndHRDDescriptor>;

TEST(AVCTimingAndHRDDescriptor, FlagsTimingAndTheKeptUnsteppedTick)
{
    LogCapture log;
    Result r({0x80, 0xE0});
    ASSERT_TRUE(r.decoded(2u));
    EXPECT_EQ(r.object->isHRDManagementValid(), TRUE);
    EXPECT_EQ(r.object->isPictTimingInfoPresent(), FALSE);
    EXPECT_EQ(r.object->isFixedFrameRate(), TRUE);
    EXPECT_EQ(r.object->isTemporalPOC(), TRUE);
    EXPECT_EQ(r.object->isPict2DisplayConv(), TRUE);
    EXPECT_NO_LOG(log);

    // 90kHz_flag clear: no N and K; num_units_in_tick 1001, then a flags byte
    // with fixed_frame_rate set that is never reached.
    Result tick({0x01, 0x7F, 0x00, 0x00, 0x03, 0xE9, 0x80});
    ASSERT_TRUE(tick.decoded(3u));
    EXPECT_EQ(tick.object->is90kHz(), FALSE);
    EXPECT_EQ(tick.object->getN(), 0u);
    EXPECT_EQ(tick.object->getNumUnitsInTick(), 1001u);
    EXPECT_EQ(tick.object->isFixedFrameRate(), FALSE); // from num_units_in_tick's first byte

    Result nk({0x01, 0x80, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x01, 0x2C, 0xA0, 0x00, 0x00, 0x01, 0x1F});
    ASSERT_TRUE(nk.decoded(11u));
    EXPECT_EQ(nk.object->is90kHz(), TRUE);
    EXPECT_EQ(nk.object->getN(), 1u);
    EXPECT_EQ(nk.object->getK(), 300u);
    EXPECT_EQ(nk.object->getNumUnitsInTick(), 0xA0000001u);
    EXPECT_EQ(nk.object->isFixedFrameRate(), TRUE);
    EXPECT_EQ(nk.object->isTemporalPOC(), FALSE);
    EXPECT_EQ(nk.object->isPict2DisplayConv(), TRUE);
}

TEST(AVCTimingAndHRDDescriptor, LengthFailures)
{
    const std::string line = "ISDBTUtils: TAVCTimingAndHRDDescriptor::parse: Longer data length is required: ";
    // 5 bytes after byte 2, then 12 after the 90kHz flag.
    expectRefused<TAVCTimingAndHRDDescriptor>({0x01, 0x00, 0x00, 0x00, 0x03, 0xE9}, kDescriptorLength,
                                              {line + "5 < 6. Aborting!"});
    expectRefused<TAVCTimingAndHRDDescriptor>({0x01, 0x80, 0, 0, 0, 1, 0, 0, 1, 0x2C, 0, 0, 3, 0xE9},
                                              kDescriptorLength, {line + "12 < 13. Aborting!"});
    // descriptor_length 15 passes both length checks, but the section ends
    // after ten bytes.
    const Bytes whole = descriptor(0x2A, {0x01, 0x80, 0, 0, 0, 1, 0, 0, 1, 0x2C, 0xA0, 0, 0, 1, 0x1F});
    expectRefusedWithin<TAVCTimingAndHRDDescriptor>(Bytes(whole.begin(), whole.begin() + 10), 17, kDescriptorLength,
                                                    {line + "7 < 13. Aborting!"});
}

TEST(AACDescriptor, ProfileTypeAdditionalInfoAndMissingBytes)
{
    LogCapture log;
    Parsed<TAACDescriptor> plain({0x29, 0x00});
    ASSERT_TRUE(plain.decoded(2u));
    EXPECT_EQ(plain.object->getProfileAndLevel(), TAACDescriptor::PROFILE_ACC_L2);
    EXPECT_EQ(plain.object->hasAACType(), FALSE);
    EXPECT_EQ(plain.object->getAdditionalInfo(), nullptr);

    Parsed<TAACDescriptor> typed({0x2C, 0x80, 0x01, 0xAA, 0xBB});
    ASSERT_TRUE(typed.decoded(5u));
    EXPECT_EQ(typed.object->hasAACType(), TRUE);
    EXPECT_EQ(typed.object->getAACType(), 0x01);
    EXPECT_EQ(block(typed.object->getAdditionalInfo(), typed.object->getAdditionalInfoSize()), "\xAA\xBB");

    Parsed<TAACDescriptor> info({0x2E, 0x7F, 0x11});
    ASSERT_TRUE(info.decoded(3u));
    EXPECT_EQ(info.object->getAACType(), 0);
    EXPECT_EQ(block(info.object->getAdditionalInfo(), info.object->getAdditionalInfoSize()), "\x11");
    EXPECT_NO_LOG(log);

    const std::string line = "ISDBTUtils: TAACDescriptor::parse: Longer data length is required: ";
    // The type flag without the type byte.
    expectRefused<TAACDescriptor>({0x29, 0x80}, kDescriptorLength, {line + "0 < 1. Aborting!"});
    // Additional info past the outermost buffer.
    expectRefusedWithin<TAACDescriptor>({0x7C, 0x06, 0x2C, 0x80, 0x01}, 8, kDescriptorLength,
                                        {line + "0 < 3. Aborting!"});
}
