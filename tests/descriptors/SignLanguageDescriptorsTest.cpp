// Libras control and data messages: no header check, no code, no parsed
// length, no log line; both bounded by the data they are handed.
#include <gtest/gtest.h>

#include <descriptors/TLCMDescriptor.h>
#include <descriptors/TLDMDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// Parses D from an exact buffer; code and parsed length must stay untouched.
template <class D>
std::unique_ptr<D> parseUntouched(ExactBuffer& data)
{
    U32 parsed = 0xDEAD;
    U16 code = 0xBEEF;
    std::unique_ptr<D> object(D::parse(data.data(), data.size(), &parsed, &code));
    EXPECT_EQ(parsed, 0xDEADu);
    EXPECT_EQ(code, 0xBEEF);
    return object;
}

// message_id 2, message_length, glosses_length, then the glosses.
Bytes dataMessage(U16 glossesLength, const Bytes& glosses)
{
    return descriptor(0x7C, concat({{0x02, 0x00, 0x00, static_cast<U8>(glossesLength >> 8),
                                     static_cast<U8>(glossesLength)},
                                    glosses}));
}

std::list<std::string> glossesOf(const Bytes& bytes)
{
    ExactBuffer data(bytes);
    std::unique_ptr<TLDMDescriptor> message = parseUntouched<TLDMDescriptor>(data);
    EXPECT_NE(message, nullptr);
    return message ? message->getGlosas() : std::list<std::string>{};
}

} // namespace

TEST(SignLanguageDescriptors, ControlMessageGeometry)
{
    LogCapture log;
    EXPECT_EQ(TLCMDescriptor::DESCRIPTOR_TAG, 0x7C);
    EXPECT_EQ(TLCMDescriptor::MINIMUM_DESCRIPTOR_LENGTH, 2u);
    // descriptor_length 13: message 1 of 11 bytes, resolution 2, window at
    // (256, 128) sized 64 x 96, content type 3.
    const Bytes control = descriptor(0x7C, {0x01, 0x00, 0x0B, 0xF2, 0x01, 0x00, 0x00, 0x80, 0x00, 0x40, 0x00, 0x60,
                                            0x03});
    ExactBuffer data(control);
    std::unique_ptr<TLCMDescriptor> message = parseUntouched<TLCMDescriptor>(data);
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->getDescriptorTag(), 0x7C);
    EXPECT_EQ(message->getData(), data.data());
    EXPECT_EQ(message->getMessageId(), 1);
    EXPECT_EQ(message->getMessageLength(), 11);
    EXPECT_EQ(message->getResolution(), 2);
    EXPECT_EQ(message->getDph(), 256);
    EXPECT_EQ(message->getDpv(), 128);
    EXPECT_EQ(message->getDfw(), 64);
    EXPECT_EQ(message->getDfh(), 96);
    EXPECT_EQ(message->getLibrasContentType(), 3);
    // Not carried by the message.
    EXPECT_EQ(message->getDictionaryVersion(), 0);
    EXPECT_EQ(message->getNetworkId(), 0);
    EXPECT_EQ(message->getTransportStreamId(), 0);
    EXPECT_EQ(message->getServiceId(), 0);

    // 14 bytes are refused (and freed); so is data under the 2 header bytes,
    // whose count would wrap.
    for (U32 length : {14u, 1u, 0u}) {
        ExactBuffer shorter(Bytes(control.begin(), control.begin() + length));
        EXPECT_EQ(parseUntouched<TLCMDescriptor>(shorter), nullptr) << length;
    }
    EXPECT_EQ(TLCMDescriptor::parse(nullptr, 15, nullptr, nullptr), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(SignLanguageDescriptors, DataMessageGlossLoop)
{
    LogCapture log;
    ExactBuffer two(dataMessage(8, {3, 'A', 'B', 'C', 3, 'D', 'E', 'F', 0xEE}));
    std::unique_ptr<TLDMDescriptor> message = parseUntouched<TLDMDescriptor>(two);
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(message->getMessageId(), 2);
    // The loop ends after 8 bytes: the trailing byte is not a gloss.
    EXPECT_EQ(message->getGlosas(), (std::list<std::string>{"ABC", "DEF"}));

    EXPECT_TRUE(glossesOf(dataMessage(0, {})).empty());
    // A zero-length gloss consumes its length byte and adds nothing.
    EXPECT_EQ(glossesOf(dataMessage(5, {0, 3, 'A', 'B', 'C'})), (std::list<std::string>{"ABC"}));
    // The count less the text bytes read is 16-bit and signed: a gloss longer
    // than glosses_length takes it below zero and ends the loop; a
    // glosses_length of 0x8000 or more never starts it.
    EXPECT_EQ(glossesOf(dataMessage(2, {5, 'H', 'E', 'L', 'L', 'O', 1, 'X'})), (std::list<std::string>{"HELLO"}));
    EXPECT_TRUE(glossesOf(dataMessage(0x8000, {1, 'X'})).empty());
    EXPECT_NO_LOG(log);
}

TEST(SignLanguageDescriptors, DataMessageStopsAtTheEndOfItsData)
{
    LogCapture log;
    // glosses_length 20 over 4 bytes of glosses; a gloss cut by the end; the
    // fixed bytes before the loop cut. Each is refused and freed.
    const Bytes cases[] = {dataMessage(20, {3, 'A', 'B', 'C'}), dataMessage(6, {5, 'A', 'B'}),
                           Bytes{0x7C, 0x04, 0x02, 0x00, 0x00, 0x00}};
    for (const Bytes& bytes : cases) {
        ExactBuffer data(bytes);
        EXPECT_EQ(parseUntouched<TLDMDescriptor>(data), nullptr);
    }
    EXPECT_EQ(TLDMDescriptor::parse(nullptr, 7, nullptr, nullptr), nullptr);
    EXPECT_NO_LOG(log);
}
