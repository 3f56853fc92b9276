#include <gtest/gtest.h>

#include <memory>

#include <pmt/TProgramMap.h>

#include "../support/LogCapture.h"
#include "PmtBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::unique_ptr<TProgramMap> parse(ExactBuffer& data, U32* itemLength, U16* code)
{
    return std::unique_ptr<TProgramMap>(TProgramMap::parse(data.data(), data.size(), FALSE, itemLength, code));
}

} // namespace

TEST(ProgramMap, VideoEntryKeepsOnePerKindAndSkipsEmptyAndUnknownSilently)
{
    LogCapture log;
    // Full-seg H.264 video on PID 0x0111: a first stream identifier replaced
    // by a second, an empty one skipped, an unknown CA descriptor (0x09),
    // video decode control (1080i), content availability.
    ExactBuffer data(streamEntry(0x1B, 0x0111,
                                 concat({descriptor(0x52, {0x30}), descriptor(0x52, {}),
                                         descriptor(0x09, {0x05, 0x01, 0xE1, 0x00}), descriptor(0xC8, {0x07}),
                                         descriptor(0x52, {0x00}), descriptor(0xDE, {0xDA})})));
    U32 length = 0;
    U16 code = 0xBEEF;
    std::unique_ptr<TProgramMap> entry = parse(data, &length, &code);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(length, data.size());
    EXPECT_EQ(entry->getStreamType(), TProgramMap::STREAM_TYPE_VIDEO);
    EXPECT_EQ(entry->getElementaryPID(), 0x0111);
    EXPECT_EQ(entry->getStreamIdentifierDescriptor(FALSE, nullptr)->getComponentTag(), 0x00);
    EXPECT_EQ(entry->getVideoDecodeControlDescriptor(FALSE, nullptr)->getVideoEncodeFormat(),
              TVideoEncodeFormat::VIDEO_ENCODE_FORMAT_1080I);
    EXPECT_EQ(entry->getDescriptor(0x52), entry->getStreamIdentifierDescriptor(FALSE, nullptr));
    EXPECT_EQ(entry->getDescriptor(0x09), nullptr);
    // Content availability is held but neither answered by tag nor listed.
    ASSERT_NE(entry->getContentAvailabilityDescriptor(FALSE, nullptr), nullptr);
    EXPECT_EQ(entry->getContentAvailabilityDescriptor(FALSE, nullptr)->getRetentionState(),
              TContentAvailabilityDescriptor::RETENTION_STATE_6_HOURS);
    EXPECT_EQ(entry->getDescriptor(0xDE), nullptr);
    EXPECT_EQ(entry->getDescriptorTags(), (std::list<U8>{0x52, 0xC8}));
    // The descriptors borrow the caller's bytes.
    EXPECT_EQ(entry->getDescriptor(0xC8)->getData(), data.data() + 16);
    EXPECT_NO_LOG(log);
}

TEST(ProgramMap, LengthFailuresAndReadsStoppingAtTheEndOfTheOutermostBuffer)
{
    LogCapture log;
    U16 code = 0;
    U32 length = 0xDEAD;
    ExactBuffer four({0x0F, 0xE1, 0x12, 0xF0});
    EXPECT_EQ(parse(four, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    ExactBuffer bare({0x0F, 0xE1, 0x12, 0xF0, 0x00});
    EXPECT_NE(parse(bare, &length, &code), nullptr);
    EXPECT_EQ(length, 5u);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);

    // ES_info_length 4 over 3 bytes.
    ExactBuffer infoTooLong({0x0F, 0xE1, 0x12, 0xF0, 0x04, 0x52, 0x01, 0x10});
    EXPECT_EQ(parse(infoTooLong, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // A descriptor of 3 body bytes with 2 after its header.
    ExactBuffer overrun(streamEntry(0x0F, 0x0112, {0x52, 0x03, 0x10, 0x00}));
    EXPECT_EQ(parse(overrun, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);

    // A known descriptor that fails its own parse: its line and code.
    ExactBuffer copyright(streamEntry(0x0F, 0x0112, descriptor(0x0D, {0x01})));
    EXPECT_EQ(parse(copyright, &length, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_EQ(length, 5u);

    // Handed more than the buffer holds, as a table with a wrapped body
    // count does: a known descriptor running past the buffer is not read.
    ExactBuffer known({0x1B, 0xE1, 0x11, 0xF0, 0x06, 0x52, 0x04, 0x00});
    EXPECT_EQ(TProgramMap::parse(known.data(), 200, TRUE, &length, &code, known.data() + known.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    // An unknown one is skipped unread; it closes the loop, so the entry stands.
    ExactBuffer unknown({0x1B, 0xE1, 0x11, 0xF0, 0x06, 0x09, 0x04, 0x00});
    std::unique_ptr<TProgramMap> entry(
        TProgramMap::parse(unknown.data(), 200, TRUE, &length, &code, unknown.data() + unknown.size()));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(length, 11u);
    // The buffer ending inside a descriptor header.
    ExactBuffer header({0x1B, 0xE1, 0x11, 0xF0, 0x04, 0x52});
    EXPECT_EQ(TProgramMap::parse(header.data(), 200, TRUE, &length, &code, header.data() + header.size()), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    const std::string prefix = "ISDBTUtils: TProgramMap::parse: Item length not valid: ";
    EXPECT_WARNINGS(log, prefix + "4. Aborting!", prefix + "4 > 3. Aborting!", prefix + "3 > 2. Aborting!",
                    "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 3 < 5. "
                    "Aborting!",
                    prefix + "4 > 1. Aborting!", prefix + "2 > 1. Aborting!");
}

TEST(ProgramMap, MalformedLanguageEmptiesItsSlotAndKeepsTheStream)
{
    LogCapture log;
    // AAC audio with Portuguese, then a language descriptor too short for a code.
    ExactBuffer data(streamEntry(0x0F, 0x0112,
                                 concat({descriptor(0x0A, {'p', 'o', 'r', 0x00}), descriptor(0x7C, {0x29, 0x00}),
                                         descriptor(0x0A, {'e', 'n'})})));
    U16 code = 0xBEEF;
    std::unique_ptr<TProgramMap> entry = parse(data, nullptr, &code);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(entry->getISO639LanguageDescriptor(FALSE, nullptr), nullptr);
    EXPECT_EQ(entry->getAACDescriptor(FALSE, nullptr)->getProfileAndLevel(), TAACDescriptor::PROFILE_ACC_L2);
    EXPECT_EQ(entry->getDescriptorTags(), (std::list<U8>{0x7C}));
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 3 > 2. "
                    "Aborting!",
                    "ISDBTUtils: TISO639LanguageDescriptor:: parse: ERROR: parsing Language Code. Aborting!");
}
