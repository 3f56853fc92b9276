#include <gtest/gtest.h>

#include <descriptors/TAudioComponentDescriptor.h>
#include <descriptors/TComponentDescriptor.h>
#include <descriptors/TContentDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

TEST(ComponentDescriptor, DecodesVideoComponentWithText)
{
    LogCapture log;
    // H.264 1080i video, component tag 0, Portuguese, "HD".
    Parsed<TComponentDescriptor> r({0xF1, 0xB3, 0x00, 'p', 'o', 'r', 'H', 'D'});
    ASSERT_TRUE(r.decoded(5u)); // text bytes + 3
    EXPECT_EQ(r.object->getStreamContent(), 0x01);
    EXPECT_EQ(r.object->getComponentType(), 0xB3);
    EXPECT_EQ(r.object->getStreamContentComponentType(), 0x01B3);
    EXPECT_EQ(r.object->getComponentTag(), 0x00);
    EXPECT_EQ(r.object->getLanguageCode(), "por");
    EXPECT_EQ(r.object->getText(), "HD");

    Parsed<TComponentDescriptor> noText({0x01, 0xB3, 0x00, 'p', 'o', 'r'});
    ASSERT_TRUE(noText.decoded(3u));
    EXPECT_EQ(noText.object->getText(), "");
    EXPECT_NO_LOG(log);
}

TEST(AudioComponentDescriptor, ReadsItsFieldsWithTheKeptOneByteShift)
{
    LogCapture log;
    // On air: AAC stereo (0x03), component_tag 0x10, stream_type 0x11,
    // simulcast_group_tag 0xFF, flags 0x2F (single language), "por", 'A'.
    Parsed<TAudioComponentDescriptor> r({0xF2, 0x03, 0x10, 0x11, 0xFF, 0x2F, 'p', 'o', 'r', 'e', 'n', 'g', 'A'});
    ASSERT_TRUE(r.decoded(0xDEADu)); // not written
    TAudioComponentDescriptor* d = r.object.get();
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
}

TEST(AudioComponentDescriptor, NoHeaderCheckButNoReadPastTheBuffer)
{
    // Another tag is accepted; no byte after the language: no text char.
    Parsed<TAudioComponentDescriptor> mono(descriptor(0xFF, {0x02, 0x03, 0x10, 0x11, 0x00, 0x2F, 'p', 'o', 'r'}), 0);
    ASSERT_NE(mono.object, nullptr);
    EXPECT_EQ(mono.object->getLanguageCode2(), "");
    EXPECT_EQ(mono.object->getTextChar(), 0);

    // The fixed fields, then the second language, one byte short; no line is logged.
    expectRefused<TAudioComponentDescriptor>({0x02, 0x03, 0x10, 0x11, 0x00, 0x2F, 'p', 'o'}, kDescriptorLength, {});
    expectRefused<TAudioComponentDescriptor>({0x02, 0x03, 0x10, 0x11, 0x80, 0x2F, 'p', 'o', 'r', 'e', 'n'},
                                             kDescriptorLength, {});
    LogCapture log;
    U16 code = 0;
    EXPECT_EQ(TAudioComponentDescriptor::parse(nullptr, 20, nullptr, &code), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(ContentDescriptor, KeepsTheFirstEntryAndChecksOnlyTheDataLength)
{
    LogCapture log;
    Parsed<TContentDescriptor> r({0x31, 0xFF, 0x02, 0x00});
    ASSERT_TRUE(r.decoded(0xDEADu));
    EXPECT_EQ(r.object->getContentNibbleLevel1(), 3);
    EXPECT_EQ(r.object->getContentNibbleLevel2(), 1);
    EXPECT_EQ(r.object->getUserByte(), 0xFF);
    EXPECT_NO_LOG(log);

    expectRefusedWithin<TContentDescriptor>({0x54, 0x01, 0x31}, 0, kDataLength,
                                            {"ISDBTUtils: TContentDescriptor::parse: Item length not valid: 3. "
                                             "Aborting!"});
}
