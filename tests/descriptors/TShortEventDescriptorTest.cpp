#include <gtest/gtest.h>

#include <descriptors/TShortEventDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

using Result = Parsed<TShortEventDescriptor>;

// "por", then "Jornal" and "Noticias." with their length bytes.
const Bytes kBody = {'p', 'o', 'r', 6, 'J', 'o', 'r', 'n', 'a', 'l', 9, 'N', 'o', 't', 'i', 'c', 'i', 'a', 's', '.'};
const std::string kParsing = "ISDBTUtils: TShortEventDescriptor:: parse: ERROR: parsing ";

} // namespace

TEST(ShortEventDescriptor, DecodesInsideTheEventLoopAndReportsItsOwnSize)
{
    LogCapture log;
    // As an event hands it over: dataLength runs to the end of the loop (a
    // content descriptor and the CRC_32 follow).
    Result r(concat({descriptor(0x4D, kBody), descriptor(0x54, {0x02, 0x00}), {0x12, 0x34, 0x56, 0x78}}), 0);
    ASSERT_TRUE(r.decoded(22u));
    EXPECT_EQ(r.object->getLanguageCode(), "por");
    EXPECT_EQ(r.object->getEventName(), "Jornal");
    EXPECT_EQ(r.object->getEventDescription(), "Noticias.");
    EXPECT_NO_LOG(log);
}

TEST(ShortEventDescriptor, StringFailuresAndTheKeptEightBitTextBound)
{
    struct Case {
        Bytes body;
        U32 parsedLength; // reported before the body is read
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        // The text bound counts the language code twice and the length bytes
        // not at all, so it is one byte short when the text ends the data.
        {kBody, 22,
         {kStringLine + "9 > 8. Aborting!",
          kParsing + "Event description. Aborting! l_iStrLength: -1 event_descr_length: 9"}},
        {{'p', 'o'}, 4, {kStringLine + "3 > 2. Aborting!", kParsing + "Language Code. Aborting!"}},
        {{'p', 'o', 'r', 5, 'a', 0}, 8,
         {kStringLine + "5 > 3. Aborting!", kParsing + "Event name. Aborting! l_iStrLength: -1 event_name_lentgth: 5"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.lines.back());
        LogCapture log;
        Result r(c.body);
        EXPECT_TRUE(r.refused(kString));
        EXPECT_EQ(r.parsedLength, c.parsedLength);
        EXPECT_WARNINGS(log, c.lines);
    }

    // A 253-byte name: 3 + 253 wraps to 0, so the text bound is not reduced
    // and a text ending the data is accepted.
    Bytes body = {'p', 'o', 'r', 253};
    body.insert(body.end(), 253, 'n');
    body.insert(body.end(), {4, 't', 'e', 'x', 't'});
    Result wide(body);
    ASSERT_NE(wide.object, nullptr);
    EXPECT_EQ(wide.object->getEventName().size(), 253u);
    EXPECT_EQ(wide.object->getEventDescription(), "text");
}

TEST(ShortEventDescriptor, LengthBytesPastTheDataAreReadOnlyInsideTheBuffer)
{
    LogCapture log;
    // descriptor_length 3: the name length lies past dataLength.
    ExactBuffer buffer({0x4D, 0x03, 'p', 'o', 'r', 0x00, 0x00, 0x05, 'a', 'b'});
    U16 code = 0;
    EXPECT_EQ(TShortEventDescriptor::parse(buffer.data(), 5, nullptr, &code), nullptr);
    EXPECT_EQ(code, kDescriptorLength);

    // Inside a larger buffer the two length bytes are read from it.
    std::unique_ptr<TShortEventDescriptor> d(
        TShortEventDescriptor::parse(buffer.data(), 5, nullptr, &code, buffer.data() + 7));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(code, kOk);
    EXPECT_EQ(d->getLanguageCode(), "por");
    EXPECT_EQ(d->getEventName(), "");

    // The text bound has wrapped below zero; the text would pass the buffer.
    Result wrapped({0x4D, 0x03, 'p', 'o', 'r', 0x00, 0x05, 'a', 'b'}, 5);
    EXPECT_TRUE(wrapped.refused(kDescriptorLength));
    EXPECT_NO_LOG(log);
}
