#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <descriptors/TShortEventDescriptor.h>
#include <descriptors/TTerrestrialDeliverySystemDescriptor.h>
#include <eit/TEITTable.h>
#include <nit/TNITTable.h>
#include <pat/TPATTable.h>

#include "../eit/EitBytes.h"
#include "../nit/NitBytes.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

Bytes patWithPrograms(U16 count)
{
    SectionBuilder b(0x00);
    b.longHeader(0x0640, 1);
    for (U16 program = 1; program <= count; ++program)
        b.u16(program).u16(static_cast<U16>(0xE000 | (0x100 + program)));
    return b.build();
}

// A receiver thread's cache of tables, emptied when the thread ends.
struct ThreadCache {
    TPATTable* table = nullptr;
    ~ThreadCache() { delete table; }
};

} // namespace

// The memory a thread keeps for its next parse is freed when the thread ends;
// a table deleted later in the thread's end (by a thread-local cache made
// before that memory was first kept) gives its own memory straight back
// instead of keeping it with no one left to free it. The leak checks of the
// sanitizer and valgrind runs see the rest.
TEST(ParseArena, TablesDeletedAsTheirThreadEndsGiveTheirMemoryBack)
{
    ExactBuffer data(patWithPrograms(10));
    std::thread([&data] {
        static thread_local ThreadCache cache;
        cache.table = nullptr;
        delete TPATTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
        cache.table = TPATTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
        ASSERT_NE(cache.table, nullptr);
        EXPECT_EQ(cache.table->get(10)->getProgramMapPid(), 0x10A);
    }).join();
}

// Objects of a parse share blocks, yet each keeps its own lifetime: items a
// caller's add displaces outlive their table and may be deleted on another
// thread, caller-made items live in the table until it goes, and many
// tables parsed and deleted on parallel threads stay independent.
TEST(ParseArena, DisplacedItemsOutliveTheirTableAndTablesOfParallelThreadsStayApart)
{
    ExactBuffer data(patWithPrograms(40));
    std::vector<TProgramAssociation*> displaced;
    for (int round = 0; round < 3; ++round) {
        TPATTable* table = TPATTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
        ASSERT_NE(table, nullptr);
        for (U16 program = 1; program <= 40; program += 3) {
            displaced.push_back(table->get(program));
            table->add(new TProgramAssociation(program, 0x1FFE));
        }
        table->add(new TProgramAssociation(0x7000, 0x1FFD));
        EXPECT_EQ(table->remove(2), TRUE);
        EXPECT_EQ(table->size(), 40u);
        delete table;
    }
    for (U16 i = 0; i < displaced.size(); ++i)
        EXPECT_EQ(displaced[i]->getProgramMapPid(), 0x100 + displaced[i]->getProgramNumber());
    std::thread([&displaced] {
        for (TProgramAssociation* item : displaced)
            delete item;
    }).join();

    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&data] {
            for (int i = 0; i < 200; ++i) {
                TPATTable* table = TPATTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
                ASSERT_NE(table, nullptr);
                ASSERT_EQ(table->get(40)->getProgramMapPid(), 0x128);
                delete table;
            }
        });
    for (std::thread& thread : threads)
        thread.join();

    // A refused parse hands everything back (the leak checks see the rest).
    Bytes cut = patWithPrograms(3);
    ExactBuffer shortData(Bytes(cut.begin(), cut.end() - 6));
    EXPECT_EQ(TPATTable::parse(shortData.data(), shortData.size(), TRUE, TRUE, nullptr, nullptr), nullptr);
}

// A displaced event's descriptors and its copy of the section bytes were
// carved after it, often from a later block of the parse: they must outlive
// the table with the event, whichever block holds them.
TEST(ParseArena, DisplacedEventKeepsItsDescriptorsAndBytesAfterItsTable)
{
    Bytes events;
    for (U16 id = 1; id <= 60; ++id)
        events = concat({events, eventEntry(id, concat({shortEvent(), ratingDescriptor()}))});
    ExactBuffer data(eitSection(events));
    TEITTable* table = TEITTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
    ASSERT_NE(table, nullptr);
    std::vector<TEventItemDescriptor*> displaced;
    for (U16 id = 1; id <= 20; ++id) {
        displaced.push_back(table->getEvent(id));
        ExactBuffer bytes(eventEntry(id, {}));
        table->addItem(TEventItemDescriptor::parse(bytes.data(), bytes.size(), nullptr, nullptr));
        EXPECT_NE(table->getEvent(id), displaced.back());
    }
    delete table;
    // The next parse reuses whatever memory the table gave back.
    Bytes others;
    for (U16 id = 1; id <= 60; ++id)
        others = concat({others, eventEntry(static_cast<U16>(0x8000 + id), copyControlDescriptor())});
    ExactBuffer next(eitSection(others));
    delete TEITTable::parse(next.data(), next.size(), TRUE, TRUE, nullptr, nullptr);
    for (TEventItemDescriptor* event : displaced) {
        auto* name = dynamic_cast<TShortEventDescriptor*>(event->getDescriptor(0x4D));
        ASSERT_NE(name, nullptr);
        EXPECT_EQ(name->getEventName(), "Jornal");
        EXPECT_NE(event->getDescriptor(0x55), nullptr);
        EXPECT_EQ(event->getData()[0], event->getEventId() >> 8);
        EXPECT_EQ(event->getData()[1], event->getEventId() & 0xFF);
        delete event;
    }
}

// The arrays a descriptor owns (here the delivery system's frequencies) are
// carved from the parse too: a displaced stream keeps them after its table,
// while the next parses on the thread reuse the memory the table gave back;
// a refused parse in between leaves the next one whole.
TEST(ParseArena, DisplacedStreamKeepsItsDescriptorArraysAfterItsTable)
{
    const auto network = [](U16 base) {
        Bytes entries;
        for (U16 tsid = 1; tsid <= 30; ++tsid) {
            const U16 frequency = static_cast<U16>(base + tsid);
            entries = concat({entries, streamEntry(tsid, 0x0640,
                                                   descriptor(0xFA, {0x12, 0x34, static_cast<U8>(frequency >> 8),
                                                                     static_cast<U8>(frequency), 0x0E, 0x9E}))});
        }
        return nitSection(0x0640, {}, entries);
    };
    ExactBuffer data(network(0x1000));
    TNITTable* table = TNITTable::parse(data.data(), data.size(), TRUE, TRUE, nullptr, nullptr);
    ASSERT_NE(table, nullptr);
    std::vector<TTransportStreamInfo*> displaced;
    for (U16 tsid = 1; tsid <= 30; tsid += 3) {
        displaced.push_back(table->getTransportStreamInfo(tsid));
        ExactBuffer entry(streamEntry(tsid, 0x0641, {}));
        table->addTransportStreamInfo(TTransportStreamInfo::parse(entry.data(), entry.size(), TRUE, nullptr, nullptr));
    }
    delete table;

    ExactBuffer other(network(0x2000));
    Bytes cut = network(0x3000);
    ExactBuffer refused(Bytes(cut.begin(), cut.end() - 9));
    for (int i = 0; i < 3; ++i) {
        delete TNITTable::parse(other.data(), other.size(), TRUE, TRUE, nullptr, nullptr);
        EXPECT_EQ(TNITTable::parse(refused.data(), refused.size(), TRUE, TRUE, nullptr, nullptr), nullptr);
    }
    TNITTable* next = TNITTable::parse(other.data(), other.size(), TRUE, TRUE, nullptr, nullptr);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->getTransportStreamInfo(30)->getTerrestrialDeliverySystemDescriptor()->getFrequencies()[0],
              0x2000 + 30);
    delete next;

    for (TTransportStreamInfo* stream : displaced) {
        TTerrestrialDeliverySystemDescriptor* delivery = stream->getTerrestrialDeliverySystemDescriptor();
        ASSERT_NE(delivery, nullptr);
        ASSERT_EQ(delivery->getFrequencyCounter(), 2u);
        EXPECT_EQ(delivery->getFrequencies()[0], 0x1000 + stream->getTransportStreamID());
        EXPECT_EQ(delivery->getFrequencies()[1], 0x0E9E);
        delete stream;
    }
}
