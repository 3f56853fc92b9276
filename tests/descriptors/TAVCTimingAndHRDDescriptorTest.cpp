#include <gtest/gtest.h>

#include <descriptors/TAACDescriptor.h>
#include <descriptors/TAVCTimingAndHRDDescriptor.h>

#include "../support/LogCapture.h"
#include "StreamDescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TAVCTimingAndHRDDescriptor>;

} // namespace

TEST(AVCTimingAndHRDDescriptor, WithoutTimingTheFlagsFollowTheFirstByte)
{
    LogCapture log;
    Result r({0x80, 0xE0});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(r.parsedLength, 2u);
    EXPECT_EQ(r.object->isHRDManagementValid(), TRUE);
    EXPECT_EQ(r.object->isPictTimingInfoPresent(), FALSE);
    EXPECT_EQ(r.object->isFixedFrameRate(), TRUE);
    EXPECT_EQ(r.object->isTemporalPOC(), TRUE);
    EXPECT_EQ(r.object->isPict2DisplayConv(), TRUE);
    EXPECT_NO_LOG(log);
}

TEST(AVCTimingAndHRDDescriptor, NumUnitsInTickIsNotSteppedOver)
{
    // 90kHz_flag clear: no N and K; num_units_in_tick 1001, then a flags byte
    // with fixed_frame_rate set that is never reached.
    Result r({0x01, 0x7F, 0x00, 0x00, 0x03, 0xE9, 0x80});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.parsedLength, 3u);
    EXPECT_EQ(r.object->is90kHz(), FALSE);
    EXPECT_EQ(r.object->getN(), 0u);
    EXPECT_EQ(r.object->getNumUnitsInTick(), 1001u);
    EXPECT_EQ(r.object->isFixedFrameRate(), FALSE); // from num_units_in_tick's first byte
}

TEST(AVCTimingAndHRDDescriptor, NAndKAreReadWhenThe90kHzFlagIsSet)
{
    Result r({0x01, 0x80, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x01, 0x2C, 0xA0, 0x00, 0x00, 0x01, 0x1F});
    ASSERT_NE(r.object, nullptr);
    EXPECT_EQ(r.parsedLength, 11u);
    EXPECT_EQ(r.object->is90kHz(), TRUE);
    EXPECT_EQ(r.object->getN(), 1u);
    EXPECT_EQ(r.object->getK(), 300u);
    EXPECT_EQ(r.object->getNumUnitsInTick(), 0xA0000001u);
    EXPECT_EQ(r.object->isFixedFrameRate(), TRUE);
    EXPECT_EQ(r.object->isTemporalPOC(), FALSE);
    EXPECT_EQ(r.object->isPict2DisplayConv(), TRUE);
}

TEST(AVCTimingAndHRDDescriptor, LengthFailures)
{
    LogCapture log;
    Result timing({0x01, 0x00, 0x00, 0x00, 0x03, 0xE9}); // 5 bytes after byte 2
    EXPECT_EQ(timing.object, nullptr);
    EXPECT_EQ(timing.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    Result nk(Bytes{0x01, 0x80, 0, 0, 0, 1, 0, 0, 1, 0x2C, 0, 0, 3, 0xE9}); // 12 after the flag
    EXPECT_EQ(nk.object, nullptr);
    EXPECT_EQ(nk.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log,
                    "ISDBTUtils: TAVCTimingAndHRDDescriptor::parse: Longer data length is required: 5 < 6. "
                    "Aborting!",
                    "ISDBTUtils: TAVCTimingAndHRDDescriptor::parse: Longer data length is required: 12 < 13. "
                    "Aborting!");
}

TEST(AVCTimingAndHRDDescriptor, StopsAtTheEndOfTheOutermostBuffer)
{
    LogCapture log;
    // descriptor_length 15 passes both length checks, but the section ends
    // after ten bytes.
    const Bytes whole = descriptor(0x2A, {0x01, 0x80, 0, 0, 0, 1, 0, 0, 1, 0x2C, 0xA0, 0, 0, 1, 0x1F});
    ExactBuffer data(Bytes(whole.begin(), whole.begin() + 10));
    U16 code = 0;
    EXPECT_EQ(TAVCTimingAndHRDDescriptor::parse(data.data(), 17, nullptr, &code, data.data() + 10), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TAVCTimingAndHRDDescriptor::parse: Longer data length is required: 7 < 13. "
                         "Aborting!");
}

TEST(AACDescriptor, ProfileTypeAndAdditionalInfo)
{
    LogCapture log;
    ExactBuffer plain(descriptor(0x7C, {0x29, 0x00}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TAACDescriptor> d(TAACDescriptor::parse(plain.data(), plain.size(), &parsed, &code));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 2u);
    EXPECT_EQ(d->getProfileAndLevel(), TAACDescriptor::PROFILE_ACC_L2);
    EXPECT_EQ(d->hasAACType(), FALSE);
    EXPECT_EQ(d->getAdditionalInfo(), nullptr);

    ExactBuffer typed(descriptor(0x7C, {0x2C, 0x80, 0x01, 0xAA, 0xBB}));
    d.reset(TAACDescriptor::parse(typed.data(), typed.size(), &parsed, &code));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 5u);
    EXPECT_EQ(d->hasAACType(), TRUE);
    EXPECT_EQ(d->getAACType(), 0x01);
    ASSERT_EQ(d->getAdditionalInfoSize(), 2);
    EXPECT_EQ(d->getAdditionalInfo()[1], 0xBB);

    ExactBuffer info(descriptor(0x7C, {0x2E, 0x7F, 0x11}));
    d.reset(TAACDescriptor::parse(info.data(), info.size(), &parsed, &code));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 3u);
    EXPECT_EQ(d->getAACType(), 0);
    ASSERT_EQ(d->getAdditionalInfoSize(), 1);
    EXPECT_EQ(d->getAdditionalInfo()[0], 0x11);
    EXPECT_NO_LOG(log);
}

TEST(AACDescriptor, TypeFlagWithoutTheTypeByte)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x7C, {0x29, 0x80}));
    U16 code = 0;
    EXPECT_EQ(TAACDescriptor::parse(data.data(), data.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TAACDescriptor::parse: Longer data length is required: 0 < 1. Aborting!");
}

TEST(AACDescriptor, AdditionalInfoPastTheOutermostBuffer)
{
    LogCapture log;
    ExactBuffer data({0x7C, 0x06, 0x2C, 0x80, 0x01});
    U16 code = 0;
    EXPECT_EQ(TAACDescriptor::parse(data.data(), 8, nullptr, &code, data.data() + data.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TAACDescriptor::parse: Longer data length is required: 0 < 3. Aborting!");
}
