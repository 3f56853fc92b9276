#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "../support/PalRecorder.h"
#include "../support/RefusalExpect.h"
#include "EitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

const U16 kRefused = TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH;

std::unique_ptr<TEITTable> parse(ExactBuffer& data, U16* code)
{
    return std::unique_ptr<TEITTable>(TEITTable::parse(data.data(), data.size(), TRUE, TRUE, code, nullptr));
}

::testing::AssertionResult eitRefused(const Bytes& bytes)
{
    return refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); }, bytes, kRefused);
}

// The recorded platform calls as "function handle-number" with handles
// numbered in order of first appearance (0 = null), plus "!" for a call that
// reported a usage error.
std::vector<std::string> palCalls()
{
    std::vector<void*> seen;
    std::vector<std::string> out;
    for (const PalCall& call : PalRecorder::instance().calls()) {
        std::size_t number = 0;
        if (call.handle) {
            auto it = std::find(seen.begin(), seen.end(), call.handle);
            if (it == seen.end())
                it = seen.insert(seen.end(), call.handle);
            number = static_cast<std::size_t>(it - seen.begin()) + 1;
        }
        out.push_back(call.function + " " + std::to_string(number) + (call.result != 0 ? "!" : ""));
    }
    return out;
}

} // namespace

TEST(EITTable, DecodesTheHeaderAndTheEventsInIdOrder)
{
    LogCapture log;
    const Bytes events = concat({eventEntry(0x0200, shortEvent()), eventEntry(0x0100, {}, 0x20)});
    ExactBuffer data(eitSection(events, 0x50, 1));
    U16 code = 0xBEEF;
    std::unique_ptr<TEITTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::HEIT);
    EXPECT_EQ(table->getTableId(), 0x50); // any table_id is taken
    EXPECT_EQ(table->getServiceId(), 0xE580);
    EXPECT_EQ(table->getVersion(), 3);
    EXPECT_EQ(table->getSectionNumber(), 1);
    EXPECT_EQ(table->getLastSectionNumber(), 2);
    EXPECT_EQ(table->getTransportStreamId(), 0x0640);
    EXPECT_EQ(table->getOriginalNetworkId(), 0x0641);
    EXPECT_EQ(table->getSegmentLastSectionNumber(), 1);
    EXPECT_EQ(table->getLastTableId(), 0x50);
    EXPECT_EQ(table->getEventsIDs(), (std::list<U16>{0x0100, 0x0200}));
    TEventItemDescriptor* first = table->getEvent(0x0200);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->getTableId(), 0x50);
    EXPECT_EQ(first->getSectionNumber(), 1);
    EXPECT_NE(first->getDescriptor(0x4D), nullptr);
    EXPECT_EQ(first->getDataLength(), events.size() + 4); // the rest of the section
    EXPECT_EQ(table->getEvent(0x0100)->getRunningStatus(), 1);
    EXPECT_EQ(table->getEvent(0x0300), nullptr);
    EXPECT_NO_LOG(log);

    // version_number is bits 5..1 of byte 5; current_next_indicator is ignored.
    Bytes other = eitSection({});
    other[5] = 0xC3;
    ExactBuffer second(other);
    std::unique_ptr<TEITTable> empty = parse(second, &code);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->getVersion(), 1);
    EXPECT_TRUE(empty->getEventsIDs().empty());
}

TEST(EITTable, RepeatedEventIdKeepsTheLaterAndAddItemRebuildsTheIds)
{
    ExactBuffer data(eitSection(concat({eventEntry(0x0100, {}, 0x80), eventEntry(0x0100, {}, 0x20)})));
    U16 code = 0;
    std::unique_ptr<TEITTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getEventsIDs(), (std::list<U16>{0x0100}));
    TEventItemDescriptor* kept = table->getEvent(0x0100);
    EXPECT_EQ(kept->getRunningStatus(), 1);

    // The caller's add: a displaced event stays the caller's.
    ExactBuffer bytes(eventEntry(0x0100, {}));
    table->addItem(TEventItemDescriptor::parse(bytes.data(), bytes.size(), nullptr, nullptr));
    EXPECT_NE(table->getEvent(0x0100), kept);
    delete kept;
    ExactBuffer more(eventEntry(0x0050, {}));
    table->addItem(TEventItemDescriptor::parse(more.data(), more.size(), nullptr, nullptr));
    EXPECT_EQ(table->getEventsIDs(), (std::list<U16>{0x0050, 0x0100}));
}

TEST(EITTable, RefusesWith2568)
{
    LogCapture log;
    const Bytes good = eitSection(eventEntry(1, {}));
    // An event with a tag outside the thirteen.
    EXPECT_TRUE(eitRefused(eitSection(eventEntry(1, descriptor(0xD8, {0x00})))));
    // Without the CRC_32 the last event ends exactly at the end: the step is
    // then only 4 and the next round reads 8 bytes from inside it.
    EXPECT_TRUE(eitRefused(Bytes(good.begin(), good.end() - 4)));
    // 5 to 11 bytes after the header that are not a CRC_32: a short event.
    EXPECT_TRUE(eitRefused(concat({Bytes(good.begin(), good.begin() + 14), Bytes(11, 0)})));
    // Too short for the header; a descriptor running past the data.
    EXPECT_TRUE(eitRefused(Bytes(good.begin(), good.begin() + 13)));
    EXPECT_TRUE(eitRefused({}));
    Bytes cut = eitSection(eventEntry(1, descriptor(0x54, {0x12, 0x34})));
    cut.resize(cut.size() - 5);
    EXPECT_TRUE(eitRefused(cut));
    EXPECT_NO_LOG(log);
    // The header alone and 4 bytes after it (no event) are fine.
    ExactBuffer header(Bytes(good.begin(), good.begin() + 18));
    U16 code = 0;
    EXPECT_NE(parse(header, &code), nullptr);
}

TEST(EITTable, PlatformCallsOfAParseARefusalAndTwoTables)
{
    ExactBuffer good(eitSection(eventEntry(1, {})));
    ExactBuffer bad(eitSection(eventEntry(1, descriptor(0xD8, {}))));
    ExactBuffer shortSection(Bytes(8, 0x4E));
    U16 code = 0;

    // Settle the shared handles first: no table alive, both destroyed (null).
    delete parse(good, &code).release();
    PalRecorder::instance().clear();
    TEITTable* first = parse(good, &code).release();
    TEITTable* second = parse(good, &code).release();
    delete first; // destroys the handles the second table created
    delete second;
    EXPECT_EQ(palCalls(), (std::vector<std::string>{
                              "lock 0", "create 1", "create 2", "unlock 2",   // first parse
                              "lock 2", "create 3", "create 4", "unlock 4",   // second: locks the first's handle
                              "destroy 3", "destroy 4",                       // first deleted
                              "destroy 0!", "destroy 0!"}));                  // second deleted: already null

    // Deleted in the other order, the platform sees the same calls.
    PalRecorder::instance().clear();
    first = parse(good, &code).release();
    second = parse(good, &code).release();
    delete second;
    delete first;
    EXPECT_EQ(palCalls(), (std::vector<std::string>{"lock 0", "create 1", "create 2", "unlock 2", "lock 2",
                                                    "create 3", "create 4", "unlock 4", "destroy 3", "destroy 4",
                                                    "destroy 0!", "destroy 0!"}));

    // A refused event and a section too short for the header: the table is
    // deleted before the unlock, which then goes to the (destroyed) handle.
    for (ExactBuffer* refused : {&bad, &shortSection}) {
        PalRecorder::instance().clear();
        EXPECT_EQ(parse(*refused, &code), nullptr);
        EXPECT_EQ(code, kRefused);
        EXPECT_EQ(palCalls(), (std::vector<std::string>{"lock 0", "create 1", "create 2", "destroy 1", "destroy 2",
                                                        "unlock 0"}));
    }
}
