#include <gtest/gtest.h>

#include <descriptors/TAudioComponentDescriptor.h>
#include <descriptors/TComponentDescriptor.h>
#include <descriptors/TContentDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ComponentDescriptor, DecodesVideoComponentWithText)
{
    LogCapture log;
    // H.264 1080i video, component tag 0, Portuguese, "HD".
    ExactBuffer data(descriptor(0x50, {0xF1, 0xB3, 0x00, 'p', 'o', 'r', 'H', 'D'}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TComponentDescriptor* d = TComponentDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 5u); // text bytes + 3
    EXPECT_EQ(d->getStreamContent(), 0x01);
    EXPECT_EQ(d->getComponentType(), 0xB3);
    EXPECT_EQ(d->getStreamContentComponentType(), 0x01B3);
    EXPECT_EQ(d->getComponentTag(), 0x00);
    EXPECT_EQ(d->getLanguageCode(), "por");
    EXPECT_EQ(d->getText(), "HD");
    delete d;

    ExactBuffer noText(descriptor(0x50, {0x01, 0xB3, 0x00, 'p', 'o', 'r'}));
    d = TComponentDescriptor::parse(noText.data(), noText.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(parsed, 3u);
    EXPECT_EQ(d->getText(), "");
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(AudioComponentDescriptor, ReadsItsFieldsWithTheKeptOneByteShift)
{
    LogCapture log;
    // On air: AAC stereo (0x03), component_tag 0x10, stream_type 0x11,
    // simulcast_group_tag 0xFF, flags 0x2F (single language), "por", 'A'.
    ExactBuffer data(descriptor(0xC4, {0xF2, 0x03, 0x10, 0x11, 0xFF, 0x2F, 'p', 'o', 'r', 'e', 'n', 'g', 'A'}));
    U32 parsed = 99;
    U16 code = 0xBEEF;
    TAudioComponentDescriptor* d = TAudioComponentDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 99u); // not written
    EXPECT_EQ(d->getStreamContent(), 0x02);
    EXPECT_EQ(d->getComponentType(), 0x03);
    EXPECT_EQ(d->getStreamType(), 0x10);
    EXPECT_EQ(d->getSimulcastGroup(), 0x11);
    // The flags come from the 0xFF byte: multilingual, so a second code.
    EXPECT_EQ(d->getEsMultiLingual(), 1);
    EXPECT_EQ(d->getMainComponent(), 1);
    EXPECT_EQ(d->getQualityIndicator(), 3);
    EXPECT_EQ(d->getSamplingRate(), 7);
    EXPECT_EQ(d->getLanguageCode1(), "por");
    EXPECT_EQ(d->getLanguageCode2(), "eng");
    EXPECT_EQ(d->getTextChar(), 'A');
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(AudioComponentDescriptor, NoHeaderCheckButNoReadPastTheBuffer)
{
    LogCapture log;
    U16 code = 0;
    // Another tag is accepted; no byte after the language: no text char.
    ExactBuffer mono(descriptor(0xFF, {0x02, 0x03, 0x10, 0x11, 0x00, 0x2F, 'p', 'o', 'r'}));
    TAudioComponentDescriptor* d = TAudioComponentDescriptor::parse(mono.data(), mono.size(), nullptr, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getLanguageCode2(), "");
    EXPECT_EQ(d->getTextChar(), 0);
    delete d;

    ExactBuffer shortFixed(descriptor(0xC4, {0x02, 0x03, 0x10, 0x11, 0x00, 0x2F, 'p', 'o'}));
    EXPECT_EQ(TAudioComponentDescriptor::parse(shortFixed.data(), shortFixed.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    ExactBuffer shortSecond(descriptor(0xC4, {0x02, 0x03, 0x10, 0x11, 0x80, 0x2F, 'p', 'o', 'r', 'e', 'n'}));
    EXPECT_EQ(TAudioComponentDescriptor::parse(shortSecond.data(), shortSecond.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_EQ(TAudioComponentDescriptor::parse(nullptr, 20, nullptr, &code), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(ContentDescriptor, KeepsTheFirstEntryAndChecksOnlyTheDataLength)
{
    LogCapture log;
    ExactBuffer data(descriptor(0x54, {0x31, 0xFF, 0x02, 0x00}));
    U32 parsed = 99;
    U16 code = 0xBEEF;
    TContentDescriptor* d = TContentDescriptor::parse(data.data(), data.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 99u);
    EXPECT_EQ(d->getContentNibbleLevel1(), 3);
    EXPECT_EQ(d->getContentNibbleLevel2(), 1);
    EXPECT_EQ(d->getUserByte(), 0xFF);
    delete d;
    EXPECT_NO_LOG(log);

    ExactBuffer shortData({0x54, 0x01, 0x31});
    EXPECT_EQ(TContentDescriptor::parse(shortData.data(), shortData.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TContentDescriptor::parse: Item length not valid: 3. Aborting!");
}
