#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <descriptors/TShortEventDescriptor.h>
#include <eit/TEITTable.h>
#include <pat/TPATTable.h>

#include "../eit/EitBytes.h"
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

} // namespace

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
