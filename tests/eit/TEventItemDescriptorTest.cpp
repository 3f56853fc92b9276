#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "EitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

const Bytes kComponent = componentDescriptor();
const Bytes kContent = contentDescriptor();
const Bytes kRating = ratingDescriptor();
const Bytes kAudio = audioDescriptor();
const Bytes kCopyControl = copyControlDescriptor();
// The seven tags skipped silently.
const Bytes kSkipped = concat({descriptor(0x42, {0xFF}), descriptor(0x4E, {0x00, 'p', 'o', 'r', 0, 0}),
                               descriptor(0xC7, {0x00}), descriptor(0xD5, {0x00}), descriptor(0xD6, {0x00}),
                               descriptor(0xD9, {0x00}), descriptor(0xDE, {0xF7})});
const Bytes kCrc{0xDE, 0xAD, 0xBE, 0xEF};

struct ParsedEvent {
    explicit ParsedEvent(const Bytes& bytes, U32 startLength = 0)
        : data(bytes), itemLength(startLength),
          event(TEventItemDescriptor::parse(data.data(), data.size(), &itemLength, &code))
    {
    }
    ExactBuffer data;
    U32 itemLength;
    U16 code = 0xBEEF;
    std::unique_ptr<TEventItemDescriptor> event;
};

::testing::AssertionResult eventRefused(const Bytes& bytes, U16 expected)
{
    return refusedBy(
        [](ExactBuffer& data, U16* code) {
            U32 itemLength = 0;
            return TEventItemDescriptor::parse(data.data(), data.size(), &itemLength, code);
        },
        bytes, expected);
}

} // namespace

TEST(EventItem, DecodesTheEventAndItsDescriptors)
{
    LogCapture log;
    const Bytes loop = concat({shortEvent(), kComponent, kContent, kSkipped, kRating, kAudio, kCopyControl});
    // running_status 4 with free_CA_mode set, which is never read.
    const Bytes bytes = concat({eventEntry(0x1234, loop, 0x90), kCrc});
    ParsedEvent p(bytes, 100);
    ASSERT_NE(p.event, nullptr);
    TEventItemDescriptor& event = *p.event;
    EXPECT_EQ(p.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(p.itemLength, 100 + loop.size()); // added to; the 12 fixed bytes are not counted
    EXPECT_EQ(event.getEventId(), 0x1234);
    EXPECT_EQ(event.getStartTime(), 750515696u); // 1993-10-13 12:34:56
    EXPECT_EQ(event.getStartHour(), 12);
    EXPECT_EQ(event.getStartMinute(), 34);
    EXPECT_EQ(event.getDuration(), 6330u);
    EXPECT_EQ(event.getDurationHour(), 1);
    EXPECT_EQ(event.getDurationMinute(), 45);
    EXPECT_EQ(event.getRunningStatus(), 4);
    EXPECT_EQ(event.getFreeCAMode(), FALSE);
    EXPECT_EQ(event.getTableId(), 0);
    EXPECT_EQ(event.getSectionNumber(), 0);

    // Its own copy of everything it was handed, the CRC_32 included.
    ASSERT_EQ(event.getDataLength(), bytes.size());
    EXPECT_NE(event.getData(), p.data.data());
    EXPECT_EQ(std::memcmp(event.getData(), bytes.data(), bytes.size()), 0);

    EXPECT_EQ(event.getDescriptorTags(), (std::list<U8>{0x4D, 0x50, 0x54, 0x55, 0xC1, 0xC4}));
    EXPECT_EQ(event.getAll().size(), 6u);
    EXPECT_EQ(event.getAll().at(0x55), event.getDescriptor(0x55));
    EXPECT_EQ(event.getDescriptor(0x4E), nullptr);

    auto* name = static_cast<TShortEventDescriptor*>(event.getDescriptor(0x4D));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->getLanguageCode(), "por");
    EXPECT_EQ(name->getEventName(), "Jornal");
    EXPECT_EQ(name->getEventDescription(), "News");
    // Handed what remains after the fixed bytes, not its own size; it
    // borrows the event's copy.
    EXPECT_EQ(name->getDataLength(), bytes.size() - 12);
    EXPECT_EQ(name->getData(), event.getData() + 12);

    auto* component = static_cast<TComponentDescriptor*>(event.getDescriptor(0x50));
    ASSERT_NE(component, nullptr);
    EXPECT_EQ(component->getComponentType(), 0xB3);
    EXPECT_EQ(component->getDataLength(), kComponent.size());
    EXPECT_EQ(static_cast<TContentDescriptor*>(event.getDescriptor(0x54))->getUserByte(), 0x34);
    auto* rating = static_cast<TParentalRatingDescriptor*>(event.getDescriptor(0x55));
    EXPECT_EQ(rating->get(0)->getRating(), TParentalRatingDescriptor::PARENTAL_RATING_12);
    EXPECT_EQ(static_cast<TAudioComponentDescriptor*>(event.getDescriptor(0xC4))->getStreamContent(), 2);
    EXPECT_NE(event.getDescriptor(0xC1), nullptr);
    EXPECT_NO_LOG(log);
}

TEST(EventItem, TimesEmptyLoopAndEquality)
{
    // No descriptors: itemLength unchanged. A date before 1970 counts as 0.
    ParsedEvent p(eventEntry(7, {}, 0x20, 0x0001), 3);
    ASSERT_NE(p.event, nullptr);
    EXPECT_EQ(p.itemLength, 3u);
    EXPECT_EQ(p.event->getStartTime(), 12u * 3600 + 34 * 60 + 56);
    EXPECT_EQ(p.event->getRunningStatus(), 1);
    EXPECT_TRUE(p.event->getDescriptorTags().empty());

    // Equality is the event_id alone.
    ParsedEvent same(eventEntry(7, kContent, 0x80, 0xE000));
    ParsedEvent other(eventEntry(8, {}));
    EXPECT_TRUE(*p.event == *same.event);
    EXPECT_FALSE(*p.event == *other.event);

    // 12 bytes is enough, a null itemLength too.
    ExactBuffer fixed(eventEntry(9, {}));
    std::unique_ptr<TEventItemDescriptor> event(TEventItemDescriptor::parse(fixed.data(), 12, nullptr, nullptr));
    EXPECT_NE(event, nullptr);
}

TEST(EventItem, Refusals)
{
    LogCapture log;
    const U16 kLength = TISDBTTable::ERROR_INVALID_DATA_LENGTH;
    const Bytes fixed = eventEntry(1, {});
    // One byte short of the fixed part.
    EXPECT_TRUE(eventRefused(Bytes(fixed.begin(), fixed.end() - 1), kLength));
    // Any tag outside the thirteen refuses the event with the code unchanged.
    ParsedEvent unknown(concat({eventEntry(1, concat({kSkipped, descriptor(0xD8, {0x00})})), kCrc}));
    EXPECT_EQ(unknown.event, nullptr);
    EXPECT_EQ(unknown.code, 0xBEEF);
    // A descriptor that runs past the data, one byte over.
    Bytes cut = eventEntry(1, kComponent);
    cut.pop_back();
    EXPECT_TRUE(eventRefused(cut, kLength));
    // The loop asks for another descriptor whose header is not there.
    Bytes header = eventEntry(1, concat({kContent, {0x54}}));
    EXPECT_TRUE(eventRefused(header, kLength));
    EXPECT_NO_LOG(log);
}

TEST(EventItem, ListedDescriptorsThatFailAreLeftOutAndRepeatsReplace)
{
    LogCapture log;
    // Content too short for its fixed bytes, then two component descriptors.
    const Bytes second = descriptor(0x50, {0xF5, 0x01, 0x02, 'e', 'n', 'g'});
    ParsedEvent p(concat({eventEntry(2, concat({descriptor(0x54, {0x12}), kComponent, second})), kCrc}));
    ASSERT_NE(p.event, nullptr);
    EXPECT_EQ(p.code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(p.event->getDescriptorTags(), (std::list<U8>{0x50}));
    EXPECT_EQ(static_cast<TComponentDescriptor*>(p.event->getDescriptor(0x50))->getComponentTag(), 0x02);
    EXPECT_WARNINGS(log, "ISDBTUtils: TContentDescriptor::parse: Item length not valid: 3. Aborting!");
}

TEST(EventItem, ShortEventBoundByTheRestOfTheInput)
{
    // As the last bytes handed in, the short event's kept bookkeeping leaves
    // its text 3 bytes of room for 4: it is left out, the event parses.
    {
        LogCapture log;
        ParsedEvent p(eventEntry(3, shortEvent()));
        ASSERT_NE(p.event, nullptr);
        EXPECT_EQ(p.code, TISDBTTable::ERROR_OK);
        EXPECT_TRUE(p.event->getDescriptorTags().empty());
        EXPECT_WARNINGS(log,
                        "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 4 > "
                        "3. Aborting!",
                        "ISDBTUtils: TShortEventDescriptor:: parse: ERROR: parsing Event description. Aborting! "
                        "l_iStrLength: -1 event_descr_length: 4");
    }
    // After a component descriptor its bound (length - 12) reaches past the
    // data; its text is cut by the end of the copy, so it fails there (and is
    // left out) without reading further. The loop then ends.
    {
        Bytes cut = eventEntry(4, concat({kComponent, shortEvent()}));
        cut.resize(cut.size() - 3);
        ParsedEvent p(cut);
        ASSERT_NE(p.event, nullptr);
        EXPECT_EQ(p.code, TISDBTTable::ERROR_OK);
        EXPECT_EQ(p.event->getDescriptorTags(), (std::list<U8>{0x50}));
        EXPECT_EQ(p.itemLength, kComponent.size() + shortEvent().size());
    }
    // The same with the data ending inside the language code.
    {
        Bytes cut = eventEntry(4, concat({kComponent, shortEvent()}));
        cut.resize(12 + kComponent.size() + 3);
        ParsedEvent p(cut);
        ASSERT_NE(p.event, nullptr);
        EXPECT_EQ(p.event->getDescriptorTags(), (std::list<U8>{0x50}));
    }
}

TEST(EventItem, AddDescriptorLeavesTheDisplacedOneToTheCaller)
{
    ParsedEvent p(concat({eventEntry(5, kContent), kCrc}));
    ASSERT_NE(p.event, nullptr);
    TISDBTDescriptor* parsed = p.event->getDescriptor(0x54);
    ExactBuffer other(descriptor(0x54, {0x70, 0x01}));
    p.event->addDescriptor(0x54, TContentDescriptor::parse(other.data(), other.size(), nullptr, nullptr));
    EXPECT_NE(p.event->getDescriptor(0x54), parsed);
    EXPECT_EQ(static_cast<TContentDescriptor*>(p.event->getDescriptor(0x54))->getUserByte(), 0x01);
    delete parsed; // displaced, still the caller's
}
