// The stream descriptors of DSM-CC sections: NPT reference and endpoint,
// stream mode, stream event and general event.
#include <gtest/gtest.h>

#include <descriptors/TGeneralEventDescriptor.h>
#include <descriptors/TNPTEndpointDescriptor.h>
#include <descriptors/TNPTReferenceDescriptor.h>
#include <descriptors/TStreamEventDescriptor.h>
#include <descriptors/TStreamModeDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// The tag and minimum; a body one byte under the minimum is refused by the
// header check with its line (5).
template <class D>
void expectHeaderChecked(U8 tag, U32 minimum)
{
    EXPECT_EQ(D::DESCRIPTOR_TAG, tag);
    EXPECT_EQ(D::MINIMUM_DESCRIPTOR_LENGTH, minimum);
    expectRefused<D>(Bytes(minimum - 1, 0xFF), kDescriptorLength,
                     {kHeaderLine + "(2) Longer data length is required: " + std::to_string(minimum + 1) + " < " +
                      std::to_string(minimum + 2) + ". Aborting!"});
}

const U32 kNotWritten = 0xDEAD;

} // namespace

TEST(DSMCCStreamDescriptors, TagsMinimumsAndHeaderCheck)
{
    expectHeaderChecked<TNPTReferenceDescriptor>(1, 18);
    expectHeaderChecked<TNPTEndpointDescriptor>(2, 14);
    expectHeaderChecked<TStreamModeDescriptor>(3, 2);
    expectHeaderChecked<TStreamEventDescriptor>(4, 10);
    expectHeaderChecked<TGeneralEventDescriptor>(4, 16);
    EXPECT_EQ(TStreamEventDescriptor::DESCRIPTOR_TAG_OLD, 26);
    // The older tag is refused by the descriptor itself: only the section
    // table rewrites it.
    expectRefusedWithin<TStreamEventDescriptor>(descriptor(26, Bytes(10, 0)), 0,
                                                TISDBTTable::ERROR_INVALID_DESCRIPTOR_TAG,
                                                {kHeaderLine + "(3) Unexpected Descriptor Tag. Got 0x1A, instead of "
                                                               "0x04. Aborting!"});
}

TEST(DSMCCStreamDescriptors, NptReferenceEndpointAndStreamMode)
{
    LogCapture log;
    // Post-discontinuity, content 5; STC 0x1_12345678; NPT 0x0_0001ABCD; scale 1/1.
    Parsed<TNPTReferenceDescriptor> reference({0x85, 0xFF, 0x12, 0x34, 0x56, 0x78, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x01,
                                               0xAB, 0xCD, 0x00, 0x01, 0x00, 0x02});
    ASSERT_TRUE(reference.decoded(kNotWritten));
    const TNPTReferenceDescriptor& r = *reference.object;
    EXPECT_TRUE(r.isPostDiscontinuity());
    EXPECT_EQ(r.getDSMCCContentID(), 5);
    EXPECT_EQ(r.getSTCReferenceH(), 1);
    EXPECT_EQ(r.getSTCReferenceL(), 0x12345678u);
    EXPECT_EQ(r.getNPTReferenceH(), 0);
    EXPECT_EQ(r.getNPTReferenceL(), 0x0001ABCDu);
    EXPECT_EQ(r.getScaleNumerator(), 1);
    EXPECT_EQ(r.getScaleDenominator(), 2);
    EXPECT_EQ(r.getData(), reference.data.data());

    // Start 0x1_00001000, stop 0x0_00002000.
    Parsed<TNPTEndpointDescriptor> endpoint(
        {0xFF, 0xFF, 0x00, 0x00, 0x10, 0x00, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x20, 0x00});
    ASSERT_TRUE(endpoint.decoded(kNotWritten));
    EXPECT_EQ(endpoint.object->getNPTStartH(), 1);
    EXPECT_EQ(endpoint.object->getNPTStartL(), 0x1000u);
    EXPECT_EQ(endpoint.object->getNPTStopH(), 0);
    EXPECT_EQ(endpoint.object->getNPTStopL(), 0x2000u);

    Parsed<TStreamModeDescriptor> mode({TStreamModeDescriptor::STREAM_MODE_END_OF_STREAM, 0xFF});
    ASSERT_TRUE(mode.decoded(kNotWritten));
    EXPECT_EQ(mode.object->getStreamMode(), 7);
    EXPECT_NO_LOG(log);
}

TEST(DSMCCStreamDescriptors, StreamEventKeepsItsPrivateData)
{
    LogCapture log;
    // Start document (event 7) at NPT 0x1_00001234, private data "doc".
    Parsed<TStreamEventDescriptor> event({0x00, 0x07, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x12, 0x34, 'd', 'o', 'c'});
    ASSERT_TRUE(event.decoded(13u)); // dataLength - 2
    EXPECT_EQ(event.object->getEventID(), TStreamEventDescriptor::ISDBT_EVENT_ID_START_DOCUMENT);
    EXPECT_EQ(event.object->getEventNPTH(), 1);
    EXPECT_EQ(event.object->getEventNPTL(), 0x1234u);
    EXPECT_EQ(event.object->getPrivateDataSize(), 3);
    EXPECT_EQ(block(event.object->getPrivateData(), 3), "doc");

    // Exactly 12 bytes: no private data.
    Parsed<TStreamEventDescriptor> bare(Bytes(10, 0x00));
    ASSERT_TRUE(bare.decoded(10u));
    EXPECT_EQ(bare.object->getPrivateDataSize(), 0);
    EXPECT_EQ(bare.object->getPrivateData(), nullptr);

    // Handed more than its own length, the private data runs to the end of
    // dataLength, copied whole with the size kept to 8 bits (300 - 12 = 288).
    Bytes longer = concat({descriptor(4, Bytes(10, 0x00)), Bytes(288, 'p')});
    Parsed<TStreamEventDescriptor> wide(longer, 300);
    ASSERT_TRUE(wide.decoded(298u));
    EXPECT_EQ(wide.object->getPrivateDataSize(), 32);
    EXPECT_EQ(block(wide.object->getPrivateData(), 288), std::string(288, 'p'));
    EXPECT_NO_LOG(log);
}

TEST(DSMCCStreamDescriptors, GeneralEventTimeModesAndItsTail)
{
    using G = TGeneralEventDescriptor;
    LogCapture log;
    // Group bytes 0xAB 0xCD: the upper nibble of the second stays in place,
    // 0xAB0 | 0xC0 = 0xAF0 (the plain 12-bit field would be 0xABC).
    // NPT mode: NPT 0x1_00ABCDEF, then type 3, id 7 and 5 private bytes.
    Parsed<G> npt({0xAB, 0xCD, G::TIME_MODE_NPT, 0x01, 0x00, 0xAB, 0xCD, 0xEF, 0x03, 0x00, 0x07, 'x', 'y', 'z', 'w',
                   'v'});
    ASSERT_TRUE(npt.decoded(16u));
    EXPECT_EQ(npt.object->getEventMsgGroupID(), 0xAF0);
    EXPECT_EQ(npt.object->getTimeMode(), 2);
    EXPECT_EQ(npt.object->getEventMsgNPTH(), 1);
    EXPECT_EQ(npt.object->getEventMsgNPTL(), 0x00ABCDEFu);
    EXPECT_EQ(npt.object->getEventMsgType(), 3);
    EXPECT_EQ(npt.object->getEventMsgID(), 7);
    EXPECT_EQ(block(npt.object->getPrivateData(), npt.object->getPrivateDataSize()), "xyzwv");
    EXPECT_EQ(npt.object->getEventMsgJSTTime(), 0u);

    // MJD mode: 2019-05-05 (MJD 0xE4F0) 12:34:56; the tail is read 5 bytes
    // further on, so the type comes from byte 15 and the private data from
    // byte 18.
    Parsed<G> mjd({0x00, 0x10, G::TIME_MODE_MJD_UTC, 0xE4, 0xF0, 0x12, 0x34, 0x56, 0x09, 0x00, 0x02, 'a', 'b', 0x77,
                   0x12, 0x34, 'p'});
    ASSERT_TRUE(mjd.decoded(17u));
    EXPECT_EQ(mjd.object->getEventMsgJSTTime(), 1557059696u);
    EXPECT_EQ(mjd.object->getEventMsgType(), 0x77);
    EXPECT_EQ(mjd.object->getEventMsgID(), 0x1234);
    EXPECT_EQ(block(mjd.object->getPrivateData(), mjd.object->getPrivateDataSize()), "p");

    // Mode 5 reads like mode 1; at the minimum length no private data is left.
    Parsed<G> mjd2({0x00, 0x10, G::TIME_MODE_MJD_UTC_2, 0xE4, 0xF0, 0x00, 0x00, 0x01, 0, 0, 0, 0, 0, 0x05, 0x00,
                    0x06});
    ASSERT_TRUE(mjd2.decoded(16u));
    EXPECT_EQ(mjd2.object->getEventMsgJSTTime(), 1557014401u);
    EXPECT_EQ(mjd2.object->getEventMsgType(), 5);
    EXPECT_EQ(mjd2.object->getEventMsgID(), 6);
    EXPECT_EQ(mjd2.object->getPrivateData(), nullptr);

    // Relative time keeps the low nibble of byte 5.
    Parsed<G> relative({0x00, 0x00, G::TIME_MODE_EVENT_RELATIVE, 0xF3, 0x00, 0x00, 0x0E, 0x10, 0x01, 0x00, 0x02, 0, 0,
                        0, 0, 0});
    ASSERT_TRUE(relative.decoded(16u));
    EXPECT_EQ(relative.object->getEventMsgRelativeTimeH(), 3);
    EXPECT_EQ(relative.object->getEventMsgRelativeTimeL(), 3600u);
    EXPECT_EQ(relative.object->getEventMsgID(), 2);
    EXPECT_NO_LOG(log);
}

TEST(DSMCCStreamDescriptors, StopAtTheEndOfTheBufferTheyAreHandedWithin)
{
    // Each descriptor's own length passes the end of the outer buffer: it
    // fails with the descriptor-length code and the header check's line (4).
    const Bytes reference = descriptor(1, Bytes(18, 0));
    expectRefusedWithin<TNPTReferenceDescriptor>(Bytes(reference.begin(), reference.end() - 1), 20,
                                                 kDescriptorLength,
                                                 {kHeaderLine + "(4) Longer data length is required: 20 < 19. "
                                                                "Aborting!"});
    const Bytes event = descriptor(4, Bytes(12, 0));
    expectRefusedWithin<TStreamEventDescriptor>(Bytes(event.begin(), event.end() - 2), 14, kDescriptorLength,
                                                {kHeaderLine + "(4) Longer data length is required: 14 < 12. "
                                                               "Aborting!"});
    const Bytes general = descriptor(4, Bytes(16, 0));
    expectRefusedWithin<TGeneralEventDescriptor>(Bytes(general.begin(), general.end() - 1), 18, kDescriptorLength,
                                                 {kHeaderLine + "(4) Longer data length is required: 18 < 17. "
                                                                "Aborting!"});
}
