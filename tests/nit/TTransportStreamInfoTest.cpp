#include <gtest/gtest.h>

#include <nit/TTransportStreamInfo.h>

#include "../support/LogCapture.h"
#include "NitBytes.h"

using namespace Vuro;
using namespace VuroTest;

TEST(TransportStreamInfo, DescriptorsOnePerKindSkippingEmptyStuffingAndUnknownSilently)
{
    LogCapture log;
    ExactBuffer data(streamEntry(0x0640, 0x0641,
                                 concat({descriptor(0xFB, {0xE5, 0x98}), descriptor(0x40, {}),
                                         descriptor(0x43, {0x01}), descriptor(0x42, {0xFF}),
                                         descriptor(0x41, {0xE5, 0x80, 0x01}), descriptor(0xFB, {0xE5, 0x99})})));
    U32 length = 0;
    U16 code = 0xBEEF;
    TTransportStreamInfo* entry = TTransportStreamInfo::parse(data.data(), data.size(), FALSE, &length, &code);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(length, data.size());
    EXPECT_EQ(entry->getTransportStreamID(), 0x0640);
    EXPECT_EQ(entry->getOriginalNetworkID(), 0x0641);
    EXPECT_EQ(entry->getNetworkNameDescriptor(), nullptr); // the empty one was not parsed
    EXPECT_EQ(entry->getServiceListDescriptor()->get(0xE5)->getServiceType(), 0x01);
    // The later partial reception descriptor wins its slot.
    EXPECT_EQ(entry->getPartialReceptionDescriptor()->getServiceIDs()[0], 0xE599);
    EXPECT_EQ(entry->getDescriptor(0xFB), entry->getPartialReceptionDescriptor());
    EXPECT_EQ(entry->getDescriptor(0x43), nullptr);
    EXPECT_EQ(entry->getDescriptor(0xCD), nullptr);
    EXPECT_EQ(entry->getDescriptorTags(), (std::list<U8>{0x41, 0xFB}));
    EXPECT_NO_LOG(log);
    delete entry;
}

TEST(TransportStreamInfo, LengthFailures)
{
    LogCapture log;
    U16 code = 0;
    ExactBuffer five({0x06, 0x40, 0x06, 0x40, 0xF0});
    EXPECT_EQ(TTransportStreamInfo::parse(five.data(), five.size(), TRUE, nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    ExactBuffer tooLong(streamEntry(0x0640, 0x0640, {0x41, 0x04, 0x00}));
    EXPECT_EQ(TTransportStreamInfo::parse(tooLong.data(), tooLong.size(), TRUE, nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // transport_descriptors_length 3 over a 9-byte entry: after an empty
    // descriptor one byte is left, so dataLength - 2 wraps and the next
    // descriptor (stuffing, 5 bytes) passes the check; the wrapped loop count
    // then walks on to the end of the buffer.
    ExactBuffer data(concat({streamEntry(0x0640, 0x0640, {0x43, 0x00, 0x42}), {0x05, 0, 0, 0, 0, 0}}));
    EXPECT_EQ(TTransportStreamInfo::parse(data.data(), 9, TRUE, nullptr, &code, data.data() + data.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 5. Aborting!",
                    "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 4 > 1. Aborting!",
                    "ISDBTUtils: TNITTransportStreamInfo::parse: Item length not valid: 2 > 0. Aborting!");
}
