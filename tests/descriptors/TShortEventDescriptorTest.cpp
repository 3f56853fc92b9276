#include <gtest/gtest.h>

#include <descriptors/TShortEventDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// "por", then "Jornal" and "Noticias." with their length bytes.
const Bytes kBody = {'p', 'o', 'r', 6, 'J', 'o', 'r', 'n', 'a', 'l', 9, 'N', 'o', 't', 'i', 'c', 'i', 'a', 's', '.'};

} // namespace

TEST(ShortEventDescriptor, DecodesInsideTheEventLoopAndReportsItsOwnSize)
{
    LogCapture log;
    // As an event hands it over: dataLength runs to the end of the loop (a
    // content descriptor and the CRC_32 follow).
    ExactBuffer loop(concat({descriptor(0x4D, kBody), descriptor(0x54, {0x02, 0x00}), {0x12, 0x34, 0x56, 0x78}}));
    U32 parsed = 0;
    U16 code = 0xBEEF;
    TShortEventDescriptor* d = TShortEventDescriptor::parse(loop.data(), loop.size(), &parsed, &code);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(parsed, 22u);
    EXPECT_EQ(d->getLanguageCode(), "por");
    EXPECT_EQ(d->getEventName(), "Jornal");
    EXPECT_EQ(d->getEventDescription(), "Noticias.");
    EXPECT_NO_LOG(log);
    delete d;
}

TEST(ShortEventDescriptor, TextEndingAtTheEndOfTheDataIsRefusedByTheKeptBound)
{
    LogCapture log;
    // The text bound counts the language code twice and the length bytes not
    // at all, so it is one byte short when the text ends the data.
    ExactBuffer data(descriptor(0x4D, kBody));
    U32 parsed = 0;
    U16 code = 0;
    EXPECT_EQ(TShortEventDescriptor::parse(data.data(), data.size(), &parsed, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_EQ(parsed, 22u); // reported before the body was read
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 9 > 8. "
                    "Aborting!",
                    "ISDBTUtils: TShortEventDescriptor:: parse: ERROR: parsing Event description. Aborting! "
                    "l_iStrLength: -1 event_descr_length: 9");
}

TEST(ShortEventDescriptor, LanguageAndNameFailures)
{
    LogCapture log;
    ExactBuffer twoBytes(descriptor(0x4D, {'p', 'o'}));
    U32 parsed = 0;
    U16 code = 0;
    EXPECT_EQ(TShortEventDescriptor::parse(twoBytes.data(), twoBytes.size(), &parsed, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_EQ(parsed, 4u);
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 3 > 2. "
                    "Aborting!",
                    "ISDBTUtils: TShortEventDescriptor:: parse: ERROR: parsing Language Code. Aborting!");

    log.clear();
    ExactBuffer longName(descriptor(0x4D, {'p', 'o', 'r', 5, 'a', 0}));
    EXPECT_EQ(TShortEventDescriptor::parse(longName.data(), longName.size(), nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_STRING);
    EXPECT_WARNINGS(log,
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 5 > 3. "
                    "Aborting!",
                    "ISDBTUtils: TShortEventDescriptor:: parse: ERROR: parsing Event name. Aborting! l_iStrLength: "
                    "-1 event_name_lentgth: 5");
}

TEST(ShortEventDescriptor, NameAndLanguageAreSubtractedInEightBits)
{
    // A 253-byte name: 3 + 253 wraps to 0, so the text bound is not reduced
    // and a text ending the data is accepted.
    Bytes body = {'p', 'o', 'r', 253};
    body.insert(body.end(), 253, 'n');
    body.insert(body.end(), {4, 't', 'e', 'x', 't'});
    Bytes bytes = {0x4D, 0xFF};
    bytes.insert(bytes.end(), body.begin(), body.end());
    ExactBuffer data(bytes);
    TShortEventDescriptor* d = TShortEventDescriptor::parse(data.data(), data.size(), nullptr, nullptr);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->getEventName().size(), 253u);
    EXPECT_EQ(d->getEventDescription(), "text");
    delete d;
}

TEST(ShortEventDescriptor, LengthBytesPastTheDataAreReadOnlyInsideTheBuffer)
{
    LogCapture log;
    // descriptor_length 3: the name length lies past dataLength.
    ExactBuffer buffer({0x4D, 0x03, 'p', 'o', 'r', 0x00, 0x00, 0x05, 'a', 'b'});
    U16 code = 0;
    EXPECT_EQ(TShortEventDescriptor::parse(buffer.data(), 5, nullptr, &code), nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);

    // Inside a larger buffer the two length bytes are read from it.
    TShortEventDescriptor* d = TShortEventDescriptor::parse(buffer.data(), 5, nullptr, &code, buffer.data() + 7);
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(d->getLanguageCode(), "por");
    EXPECT_EQ(d->getEventName(), "");
    delete d;

    // The text bound has wrapped below zero; the text would pass the buffer.
    ExactBuffer wrapped({0x4D, 0x03, 'p', 'o', 'r', 0x00, 0x05, 'a', 'b'});
    EXPECT_EQ(TShortEventDescriptor::parse(wrapped.data(), 5, nullptr, &code, wrapped.data() + wrapped.size()),
              nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_NO_LOG(log);
}
