// The simple stream and content-protection descriptors: fixed fields and
// owned byte blocks.
#include <gtest/gtest.h>

#include <descriptors/TAVCVideoDescriptor.h>
#include <descriptors/TCAIdentifierDescriptor.h>
#include <descriptors/TCarouselCompatibleCompositeDescriptor.h>
#include <descriptors/TCarouselIdentifierDescriptor.h>
#include <descriptors/TConditionalPlaybackDescriptor.h>
#include <descriptors/TContentAvailabilityDescriptor.h>
#include <descriptors/TCopyrightDescriptor.h>
#include <descriptors/TDataComponentDescriptor.h>
#include <descriptors/THierarchicalTransmissionDescriptor.h>
#include <descriptors/TISO639LanguageDescriptor.h>
#include <descriptors/TStreamIdentifierDescriptor.h>
#include <descriptors/TTargetRegionDescriptor.h>
#include <descriptors/TVideoDecodeControlDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// The tag and minimum, then: a body one byte under the minimum fails in the
// header check; a descriptor of another tag too. Both allocate nothing.
template <class D>
void expectHeaderChecked(U32 minimum, U8 tag)
{
    EXPECT_EQ(D::MINIMUM_DESCRIPTOR_LENGTH, minimum);
    EXPECT_EQ(D::DESCRIPTOR_TAG, tag);
    if (minimum > 0) {
        Parsed<D> shortBody(Bytes(minimum - 1, 0x00));
        EXPECT_TRUE(shortBody.refused(kDescriptorLength));
    }
    Parsed<D> other(descriptor(static_cast<U8>(tag + 1), Bytes(minimum + 4, 0x00)), 0);
    EXPECT_TRUE(other.refused(TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG));
}

// The descriptor's own length runs past the buffer the outermost parse was
// handed: only the first `keep` bytes exist. The parse fails with the
// descriptor-length code instead of reading on.
template <class D>
void expectStopsAtBufferEnd(const Bytes& body, U32 keep)
{
    const Bytes whole = descriptor(D::DESCRIPTOR_TAG, body);
    Parsed<D> r(Bytes(whole.begin(), whole.begin() + keep), static_cast<U32>(whole.size()));
    EXPECT_TRUE(r.refused(kDescriptorLength));
}

} // namespace

TEST(StreamDescriptors, TagsMinimumsAndHeaderCheck)
{
    LogCapture log;
    expectHeaderChecked<TCAIdentifierDescriptor>(2, 0x53);
    expectHeaderChecked<TContentAvailabilityDescriptor>(1, 0xDE);
    expectHeaderChecked<TCopyrightDescriptor>(3, 0x0D);
    expectHeaderChecked<TStreamIdentifierDescriptor>(1, 0x52);
    expectHeaderChecked<THierarchicalTransmissionDescriptor>(3, 0xC0);
    expectHeaderChecked<TDataComponentDescriptor>(2, 0xFD);
    expectHeaderChecked<TTargetRegionDescriptor>(1, 0xC6);
    expectHeaderChecked<TVideoDecodeControlDescriptor>(1, 0xC8);
    expectHeaderChecked<TConditionalPlaybackDescriptor>(4, 0xF8);
    expectHeaderChecked<TAVCVideoDescriptor>(4, 0x28);
    expectHeaderChecked<TCarouselIdentifierDescriptor>(4, 0x13);
    expectHeaderChecked<TISO639LanguageDescriptor>(2, 0x0A);
    expectHeaderChecked<TCarouselCompatibleCompositeDescriptor>(4, 0xF7);
}

TEST(StreamDescriptors, CAIdentifierKeepsWholeIdsOnly)
{
    LogCapture log;
    // Two CA systems and an odd trailing byte: descriptor_length 5.
    Parsed<TCAIdentifierDescriptor> d({0x05, 0x01, 0x0B, 0x00, 0xFF});
    ASSERT_TRUE(d.decoded(5u));
    ASSERT_EQ(d.object->getCASystemIDCount(), 2);
    EXPECT_EQ(d.object->getCASystemIDs()[0], 0x0501);
    EXPECT_EQ(d.object->getCASystemIDs()[1], 0x0B00);
    EXPECT_EQ(d.object->getData(), d.data.data());
    EXPECT_NO_LOG(log);
}

TEST(StreamDescriptors, ContentAvailabilityFlagsAreInverted)
{
    using CA = TContentAvailabilityDescriptor;
    struct Case {
        U8 byte;
        BOOL token, mode, encryption;
        U8 state;
    };
    const Case cases[] = {
        {0x00, TRUE, TRUE, TRUE, CA::RETENTION_STATE_NO_LIMIT},
        {0xFF, FALSE, FALSE, FALSE, CA::RETENTION_STATE_1_HALF_HOUR},
        {0xDA, TRUE, FALSE, TRUE, CA::RETENTION_STATE_6_HOURS}, // token clear, mode set, state 5, encryption clear
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.byte));
        Parsed<CA> r({c.byte});
        ASSERT_TRUE(r.decoded(3u)); // the whole dataLength
        EXPECT_EQ(r.object->isImageConstraintToken(), c.token);
        EXPECT_EQ(r.object->isRetentionMode(), c.mode);
        EXPECT_EQ(r.object->isEncryptionMode(), c.encryption);
        EXPECT_EQ(r.object->getRetentionState(), c.state);
    }
}

TEST(StreamDescriptors, CopyrightHierarchyStreamIdentifierAndVideoDecodeControl)
{
    Parsed<TCopyrightDescriptor> copyright({0xFF, 0xE1, 0x23, 0x77});
    ASSERT_TRUE(copyright.decoded(3u));
    EXPECT_EQ(copyright.object->getHierarchicalLevel(), 1);
    EXPECT_EQ(copyright.object->getReferencePID(), 0x0123);

    Parsed<THierarchicalTransmissionDescriptor> hierarchy({0xFE, 0xFF, 0xFF});
    ASSERT_TRUE(hierarchy.decoded(3u));
    EXPECT_EQ(hierarchy.object->getQualityLevel(), 0);
    EXPECT_EQ(hierarchy.object->getReferencePID(), 0x1FFF);

    Parsed<TStreamIdentifierDescriptor> stream({0x81});
    ASSERT_TRUE(stream.decoded(1u));
    EXPECT_EQ(stream.object->getComponentTag(), 0x81);

    // 480i (format 4) with the sequence end code: bit 0x10 is outside the mask.
    Parsed<TVideoDecodeControlDescriptor> i480({0x50});
    ASSERT_TRUE(i480.decoded(1u));
    EXPECT_EQ(i480.object->isStillPicture(), FALSE);
    EXPECT_EQ(i480.object->isSequenceEndCode(), TRUE);
    EXPECT_EQ(i480.object->getVideoEncodeFormat(), TVideoDecodeControlDescriptor::VIDEO_ENCODE_FORMAT_1080P);
    Parsed<TVideoDecodeControlDescriptor> p480({0x8F});
    EXPECT_EQ(p480.object->isStillPicture(), TRUE);
    EXPECT_EQ(p480.object->getVideoEncodeFormat(), TVideoDecodeControlDescriptor::VIDEO_ENCODE_FORMAT_480P);
    Parsed<TVideoDecodeControlDescriptor> p120({0x18}); // format 6
    EXPECT_EQ(p120.object->getVideoEncodeFormat(), TVideoDecodeControlDescriptor::VIDEO_ENCODE_FORMAT_720P);
}

TEST(StreamDescriptors, AVCVideo)
{
    // High profile, level 4.0, no still pictures; then every flag set.
    Parsed<TAVCVideoDescriptor> high({0x64, 0x00, 0x28, 0x3F});
    ASSERT_TRUE(high.decoded(4u));
    EXPECT_EQ(high.object->getProfileIDC(), 0x64);
    EXPECT_EQ(high.object->isConstraintSet0(), FALSE);
    EXPECT_EQ(high.object->getLevelIDC(), 0x28);
    EXPECT_EQ(high.object->isAVCStillPresent(), FALSE);
    EXPECT_EQ(high.object->isAVC24HourPicture(), FALSE);

    Parsed<TAVCVideoDescriptor> flags({0x42, 0xE5, 0x1E, 0xC0});
    EXPECT_EQ(flags.object->isConstraintSet0(), TRUE);
    EXPECT_EQ(flags.object->isConstraintSet1(), TRUE);
    EXPECT_EQ(flags.object->isConstraintSet2(), TRUE);
    EXPECT_EQ(flags.object->getAVCCompatibleFlags(), 0x05);
    EXPECT_EQ(flags.object->isAVCStillPresent(), TRUE);
    EXPECT_EQ(flags.object->isAVC24HourPicture(), TRUE);
}

TEST(StreamDescriptors, ByteBlocksAreOwnedCopies)
{
    LogCapture log;
    Parsed<TDataComponentDescriptor> data({0x00, 0x0C, 0x01, 0x02, 0x03});
    ASSERT_TRUE(data.decoded(5u));
    EXPECT_EQ(data.object->getDataComponentID(), TDataComponentDescriptor::COMPONENT_ID_OBJECT_CAROUSEL);
    EXPECT_EQ(block(data.object->getAdditionalData(), data.object->getAdditionalDataSize()), "\x01\x02\x03");
    EXPECT_NE(data.object->getAdditionalData(), data.data.data() + 4);
    Parsed<TDataComponentDescriptor> bare({0x00, 0x12});
    EXPECT_EQ(bare.object->getAdditionalDataSize(), 0);
    EXPECT_EQ(bare.object->getAdditionalData(), nullptr);

    Parsed<TTargetRegionDescriptor> region({0x01, 'S', 'P'});
    ASSERT_TRUE(region.decoded(3u));
    EXPECT_EQ(region.object->getRegionSpecType(), 1);
    EXPECT_EQ(block(region.object->getSpecData(), region.object->getSpecSize()), "SP");

    Parsed<TConditionalPlaybackDescriptor> playback({0x05, 0x01, 0xE1, 0x00, 0xAA, 0xBB});
    ASSERT_TRUE(playback.decoded(6u));
    EXPECT_EQ(playback.object->getCASystemID(), 0x0501);
    EXPECT_EQ(playback.object->getCAPID(), 0x0100);
    EXPECT_EQ(block(playback.object->getPrivateData(), playback.object->getPrivateDataSize()), "\xAA\xBB");
    EXPECT_NO_LOG(log);

    // Decoded on its own with dataLength past descriptor_length: the body is
    // walked to the end of dataLength, 256 bytes of additional data.
    Bytes longer = descriptor(0xFD, {0x00, 0x09});
    longer.resize(2 + 2 + 256, 0x5A);
    Parsed<TDataComponentDescriptor> big(longer, 0);
    ASSERT_NE(big.object, nullptr);
    EXPECT_EQ(big.object->getAdditionalDataSize(), 0);
    ASSERT_NE(big.object->getAdditionalData(), nullptr);
    EXPECT_EQ(big.object->getAdditionalData()[255], 0x5A);
}

TEST(StreamDescriptors, CarouselIdentifierKeepsEverythingAfterTheIdAsPrivateData)
{
    // carousel_id 1, then FormatID 1 (service gateway) and three more bytes.
    Parsed<TCarouselIdentifierDescriptor> d({0x00, 0x00, 0x00, 0x01, 0x01, 0x02, 0x03, 0x04});
    ASSERT_TRUE(d.decoded(8u));
    EXPECT_EQ(d.data.size(), 10u);
    EXPECT_EQ(d.object->getCarouselID(), 1u);
    EXPECT_EQ(block(d.object->getPrivateData(), d.object->getPrivateDataSize()), "\x01\x02\x03\x04");
    EXPECT_EQ(d.object->getFormatID(), TCarouselIdentifierDescriptor::FORMAT_TYPE_NOT_AVAILABLE);
    EXPECT_EQ(d.object->getModuleSize(), 0u);
    EXPECT_EQ(d.object->getObjectKeyLength(), 0);
    EXPECT_EQ(d.object->getObjectKeyData(), nullptr);
}

TEST(StreamDescriptors, CarouselCompatibleCompositeIsNotDecodedAndISO639KeepsTheFirstCode)
{
    LogCapture log;
    Parsed<TCarouselCompatibleCompositeDescriptor> d({0x01, 0x02, 0x03, 0x04, 0x05});
    ASSERT_TRUE(d.decoded(7u));
    EXPECT_WARNINGS(log, "ISDBTUtils: TCarouselCompatibleCompositeDescriptor::parse: TODO: Descriptor not "
                         "implemented yet. If you really need this descriptor, please contact support.");

    // The language descriptor keeps the first code and writes no length.
    log.clear();
    Parsed<TISO639LanguageDescriptor> language({'p', 'o', 'r', 0x00, 'e', 'n', 'g', 0x03});
    ASSERT_TRUE(language.decoded(0xDEADu));
    EXPECT_EQ(language.object->getLanguageCode(), "por");
    EXPECT_NO_LOG(log);

    expectRefused<TISO639LanguageDescriptor>(
        {'p', 'o'}, kString,
        {kStringLine + "3 > 2. Aborting!",
         "ISDBTUtils: TISO639LanguageDescriptor:: parse: ERROR: parsing Language Code. Aborting!"});
}

TEST(StreamDescriptors, ReadsStopAtTheEndOfTheOutermostBuffer)
{
    LogCapture log;
    expectStopsAtBufferEnd<TStreamIdentifierDescriptor>({0x81}, 2);
    expectStopsAtBufferEnd<TContentAvailabilityDescriptor>({0x00}, 2);
    expectStopsAtBufferEnd<TCopyrightDescriptor>({0x01, 0xE1, 0x23}, 4);
    expectStopsAtBufferEnd<THierarchicalTransmissionDescriptor>({0x01, 0xE1, 0x23}, 4);
    expectStopsAtBufferEnd<TVideoDecodeControlDescriptor>({0x50}, 2);
    expectStopsAtBufferEnd<TAVCVideoDescriptor>({0x64, 0x00, 0x28, 0x3F}, 5);
    expectStopsAtBufferEnd<TCAIdentifierDescriptor>({0x05, 0x01, 0x0B, 0x00}, 5);
    expectStopsAtBufferEnd<TDataComponentDescriptor>({0x00, 0x0C, 0x01, 0x02}, 5);
    expectStopsAtBufferEnd<TTargetRegionDescriptor>({0x01, 'S', 'P'}, 4);
    expectStopsAtBufferEnd<TConditionalPlaybackDescriptor>({0x05, 0x01, 0xE1, 0x00, 0xAA}, 6);
    expectStopsAtBufferEnd<TCarouselIdentifierDescriptor>({0x00, 0x00, 0x00, 0x01, 0x01}, 6);
    expectStopsAtBufferEnd<TISO639LanguageDescriptor>({'p', 'o', 'r', 0x00}, 4);
    EXPECT_NO_LOG(log);

    // Inside a larger section the same descriptor decodes as on its own.
    Parsed<TConditionalPlaybackDescriptor> d(
        concat({descriptor(0xF8, {0x05, 0x01, 0xE1, 0x00, 0xAA}), {0x52, 0x01, 0x30}}), 7);
    ASSERT_TRUE(d.decoded(5u));
    EXPECT_EQ(block(d.object->getPrivateData(), d.object->getPrivateDataSize()), "\xAA");
}
