#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <DSMCCSection/TDDBTable.h>
#include <DSMCCSection/TDSMCCSectionTable.h>
#include <DSMCCSection/TDsiDiiTable.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

const Bytes kReference = descriptor(1, {0x85, 0xFF, 0x12, 0x34, 0x56, 0x78, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x01,
                                        0xAB, 0xCD, 0x00, 0x01, 0x00, 0x01});
const Bytes kEndpoint = descriptor(2, {0xFF, 0xFF, 0x00, 0x00, 0x10, 0x00, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x20,
                                       0x00});
const Bytes kMode = descriptor(3, {0x02, 0xFF});

// Stream event eventId at NPT 0x1234 with the private data, under tag.
Bytes streamEvent(U16 eventId, const std::string& privateData, U8 tag = 4)
{
    return descriptor(tag, concat({{static_cast<U8>(eventId >> 8), static_cast<U8>(eventId), 0xFF, 0xFF, 0xFF, 0xFE,
                                    0x00, 0x00, 0x12, 0x34},
                                   Bytes(privateData.begin(), privateData.end())}));
}

// data_event_id 1, event_msg_group_id 0xABC.
Bytes section(const Bytes& descriptors, U8 version = 3, U8 sectionNumber = 0)
{
    return SectionBuilder(0x3D).longHeader(0x1ABC, version, true, sectionNumber, sectionNumber).bytes(descriptors)
        .build();
}

struct Result {
    explicit Result(const Bytes& bytes, TDSMCCSectionTable* previous = nullptr)
        : data(bytes), table(TDSMCCSectionTable::parse(data.data(), data.size(), TRUE, FALSE, &code, previous))
    {
    }
    ExactBuffer data;
    U16 code = 0xBEEF;
    std::unique_ptr<TDSMCCSectionTable> table;
};

const std::string kItemLine = "ISDBTUtils: TDSMCCSectionTable::parse: Item length not valid: ";
const std::string kUnknown = "ISDBTUtils: TDSMCCSectionTable::parse: Unknown descriptor: 0x";

} // namespace

TEST(DSMCCSectionTable, DecodesTheHeaderAndTheStreamDescriptors)
{
    LogCapture log;
    // Unknown tags (0, 5 .. 25, above 26) are skipped with a line.
    Result r(section(concat({descriptor(0x17, {0x01}), kMode, streamEvent(5, "app"), kEndpoint, descriptor(0, {}),
                             kReference, descriptor(0x1B, {})})));
    ASSERT_NE(r.table, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    const TDSMCCSectionTable& t = *r.table;
    EXPECT_EQ(t.getType(), TISDBTTable::DSMCC_SECTION);
    EXPECT_EQ(t.getDataEventID(), 1);
    EXPECT_EQ(t.getEventMsgGroupID(), 0xABC);
    EXPECT_EQ(t.getVersion(), 3);
    EXPECT_EQ(t.getNPTReferenceDescriptor()->getSTCReferenceL(), 0x12345678u);
    EXPECT_EQ(t.getNPTEndpointDescriptor()->getNPTStopL(), 0x2000u);
    EXPECT_EQ(t.getStreamModeDescriptor()->getStreamMode(), TStreamModeDescriptor::STREAM_MODE_TRANSPORT);
    EXPECT_EQ(t.getStreamEventDescriptor()->getEventID(), TStreamEventDescriptor::ISDBT_EVENT_ID_ADD_DOCUMENT);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(t.getStreamEventDescriptor()->getPrivateData()), 3), "app");
    // The descriptors borrow the caller's buffer, not the table's copy.
    EXPECT_EQ(t.getStreamModeDescriptor()->getData(), r.data.data() + 8 + 3);
    EXPECT_EQ(t.getDescriptorTags(), (std::list<U8>{1, 2, 3, 4}));
    EXPECT_EQ(t.getDescriptor(2), t.getNPTEndpointDescriptor());
    EXPECT_EQ(t.getDescriptor(4), t.getStreamEventDescriptor());
    EXPECT_EQ(t.getDescriptor(26), nullptr);
    EXPECT_EQ(t.getDescriptor(5), nullptr);
    EXPECT_WARNINGS(log, kUnknown + "17. Ignored!", kUnknown + "00. Ignored!", kUnknown + "1B. Ignored!");

    // An empty body; a repeated tag keeps the later descriptor.
    Result empty(section({}));
    ASSERT_NE(empty.table, nullptr);
    EXPECT_TRUE(empty.table->getDescriptorTags().empty());
    Result twice(section(concat({streamEvent(7, ""), streamEvent(8, "")})));
    ASSERT_NE(twice.table, nullptr);
    EXPECT_EQ(twice.table->getStreamEventDescriptor()->getEventID(), 8);
}

TEST(DSMCCSectionTable, OldStreamEventTagIsRewrittenInTheCallersBuffer)
{
    LogCapture log;
    Result r(section(concat({kMode, streamEvent(54, "x", 26)})));
    ASSERT_NE(r.table, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_OK);
    const U32 offset = 8 + 4;
    // The byte that was 26 is now 4 in the caller's buffer; the table's own
    // copy, taken before the walk, still holds 26.
    EXPECT_EQ(r.data.data()[offset], 4);
    EXPECT_EQ(r.table->getData()[offset], 26);
    ASSERT_NE(r.table->getDescriptor(4), nullptr);
    EXPECT_EQ(r.table->getDescriptor(4)->getData(), r.data.data() + offset);
    EXPECT_EQ(r.table->getStreamEventDescriptor()->getEventID(), TStreamEventDescriptor::ISDBT_EVENT_ID_ADD_APPLICATION);
    EXPECT_EQ(r.table->getDescriptorTags(), (std::list<U8>{3, 4}));
    EXPECT_NO_LOG(log);
}

TEST(DSMCCSectionTable, Failures)
{
    LogCapture log;
    // A descriptor longer than the body: the line names the tag, not the
    // length, and what the body count leaves after the header (5 - 2 = 3).
    Bytes longer = section(concat({kMode, {0x04, 0x07, 0, 0, 0}}));
    Result r(longer);
    EXPECT_EQ(r.table, nullptr);
    EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    EXPECT_WARNINGS(log, kItemLine + "4 > 3. Aborting!");

    // A descriptor that fails leaves its own code (stream mode under its minimum).
    log.clear();
    Result bad(section(concat({kReference, descriptor(3, {0x02})})));
    EXPECT_EQ(bad.table, nullptr);
    EXPECT_EQ(bad.code, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: (2) Longer data length is required: 3 < "
                         "4. Aborting!");

    // Against a previous table: the same version, and a later section
    // number (refused without a code).
    log.clear();
    Result first(section(kMode));
    Result same(section(kMode), first.table.get());
    EXPECT_EQ(same.table, nullptr);
    EXPECT_EQ(same.code, TISDBTTable::ERROR_TABLE_NOT_UPDATED);
    Result newer(section(kMode, 4), first.table.get());
    EXPECT_NE(newer.table, nullptr);
    Result later(section(kMode, 4, 1), first.table.get());
    EXPECT_EQ(later.table, nullptr);
    EXPECT_EQ(later.code, 0xBEEF);
    EXPECT_WARNINGS(log, "ISDBTUtils: TISDBTVersionedTable::parse: Multi-section parsing not supported. TODO!");
}

TEST(DSMCCSectionTable, WrappedBodyCountStopsAtTheBufferEnd)
{
    // section_length 5 wraps the body count (5 - 4 - 5) to 65532: the walk
    // goes on past the section's own bytes and stops where the buffer ends.
    const Bytes header{0x3D, 0xB0, 0x05, 0x1A, 0xBC, 0xC7, 0x00, 0x00};
    struct Case {
        Bytes tail;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        // An unknown descriptor, then a lone byte: no room for a header.
        {{0x03, 0x02, 0x07, 0xFF, 0x50, 0x00, 0x51}, {kUnknown + "50. Ignored!", kItemLine + "2 > 1. Aborting!"}},
        // An unknown descriptor claiming more than there is.
        {{0x50, 0x20, 0x01}, {kUnknown + "50. Ignored!", kItemLine + "2 > 0. Aborting!"}},
        // A stream mode descriptor cut by the end.
        {{0x03, 0x05, 0x07}, {kItemLine + "3 > 1. Aborting!"}},
        // An old-tag stream event cut by the end: rewritten, then refused.
        {{0x1A, 0x0A, 0x00}, {kItemLine + "26 > 1. Aborting!"}},
    };
    for (const Case& c : cases) {
        LogCapture log;
        Result r(concat({header, c.tail}));
        EXPECT_EQ(r.table, nullptr);
        EXPECT_EQ(r.code, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        EXPECT_WARNINGS(log, c.lines);
    }
}

TEST(DSMCCSectionTable, DsiDiiAndDdbSectionsAreKeptWhole)
{
    LogCapture log;
    // A DII-like section with the wrong table_id, and no bytes at all: both
    // are held as they are, without a check.
    const Bytes dii = SectionBuilder(0x3C).longHeader(0x1002, 1).bytes({0x11, 0x03, 0x10, 0x02}).build();
    ExactBuffer data(dii);
    U16 code = 0xBEEF;
    std::unique_ptr<TDsiDiiTable> table(TDsiDiiTable::parse(data.data(), data.size(), TRUE, TRUE, &code, nullptr));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::DSI_DII);
    EXPECT_NE(table->getData(), data.data());
    EXPECT_EQ(Bytes(table->getData(), table->getData() + table->getDataLength()), dii);
    code = 0xBEEF;
    std::unique_ptr<TDDBTable> ddb(TDDBTable::parse(data.data(), 0, FALSE, FALSE, &code, nullptr));
    ASSERT_NE(ddb, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(ddb->getType(), TISDBTTable::DDB);
    EXPECT_EQ(ddb->getDataLength(), 0u);
    EXPECT_NO_LOG(log);
}
