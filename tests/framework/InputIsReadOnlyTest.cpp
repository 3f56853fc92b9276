// No parse writes into the buffer it is handed (the one exception is the
// DSM-CC section table's rewrite of the old stream event tag): every table
// family and descriptor class parses a representative section from
// read-only memory pages. A new table joins with one line in kCases.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include <VuroISDBT.h>

#include "../support/ReadOnlyBuffer.h"
#include "../support/SectionBuilder.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// A table parse with both flags set and no previous table; T's flag order
// does not matter then.
template <class T>
bool table(U8* data, U32 length)
{
    U16 code = 0xBEEF;
    T* parsed = T::parse(data, length, TRUE, TRUE, &code, nullptr);
    delete parsed;
    return parsed && code == TISDBTTable::ERROR_OK;
}

template <class D>
bool descriptorOf(U8* data, U32 length)
{
    U32 parsedLength = 0;
    U16 code = 0xBEEF;
    D* parsed = D::parse(data, length, &parsedLength, &code);
    delete parsed;
    return parsed != nullptr;
}

struct Case {
    std::string name;
    Bytes bytes;
    std::function<bool(U8*, U32)> parse;
};

const Bytes kServiceList = descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0});
const Bytes kStreamEvent = descriptor(4, {0x00, 0x07, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x12, 0x34, 'd', 'o', 'c'});

const std::vector<Case> kCases = {
    {"PAT", SectionBuilder(0x00).longHeader(0x0640, 1).u32(0x00000010).u32(0xE580E100).build(), table<TPATTable>},
    {"PMT",
     SectionBuilder(0x02).longHeader(0xE580, 1).u16(0xE111).loop(descriptor(0x13, {0, 0, 0, 1}))
         .bytes({0x1B, 0xE1, 0x11, 0xF0, 0x03, 0x52, 0x01, 0x00, 0x0D, 0xE1, 0x40, 0xF0, 0x00})
         .build(),
     table<TPMTTable>},
    {"NIT",
     SectionBuilder(0x40).longHeader(0x0640, 1).loop(descriptor(0x40, {'V', 'u', 'R', 'O'}))
         .loop(concat({{0x06, 0x40, 0x06, 0x40, 0xF0, static_cast<U8>(kServiceList.size())}, kServiceList}))
         .build(),
     table<TNITTable>},
    {"SDT",
     SectionBuilder(0x42).longHeader(0x0640, 1).u16(0x0640).u8(0xFF)
         .bytes(concat({{0xE5, 0x80, 0xFC, 0x80, 0x09}, descriptor(0x48, {0x01, 0, 4, 'V', 'u', 'R', 'O'})}))
         .build(),
     table<TSDTTable>},
    {"TOT",
     SectionBuilder(0x73).u16(0xC079).u8(0x12).u8(0x45).u8(0x00)
         .loop(descriptor(0x58, {'B', 'R', 'A', 0x07, 0x03, 0x00, 0xE4, 0xF0, 0x00, 0x00, 0x00, 0x02, 0x00}))
         .build(),
     table<TTOTTable>},
    {"DSM-CC stream descriptors",
     SectionBuilder(0x3D).longHeader(0x1ABC, 1)
         .bytes(concat({descriptor(3, {0x00, 0xFF}), descriptor(2, Bytes(14, 0x01)), descriptor(1, Bytes(18, 0x01)),
                        kStreamEvent}))
         .build(),
     table<TDSMCCSectionTable>},
    {"DSI/DII", SectionBuilder(0x3B).longHeader(0x0000, 1).u32(0x11030010).build(), table<TDsiDiiTable>},
    {"DDB", SectionBuilder(0x3C).longHeader(0x0001, 1).u32(0x11031003).build(), table<TDDBTable>},
    {"datacaster carousel entry", {0xE1, 0x23, 0x05, 0x00, 0x00, 0x00, 0x2A, 0x40, 3, 'a', 'p', 'p'},
     [](U8* data, U32 length) {
         U32 itemLength = 0;
         TDatacasterCarousel* entry = TDatacasterCarousel::parse(data, length, TRUE, &itemLength, nullptr);
         delete entry;
         return entry != nullptr;
     }},
    {"NPT reference", descriptor(1, Bytes(18, 0x01)), descriptorOf<TNPTReferenceDescriptor>},
    {"NPT endpoint", descriptor(2, Bytes(14, 0x01)), descriptorOf<TNPTEndpointDescriptor>},
    {"stream mode", descriptor(3, {0x01, 0xFF}), descriptorOf<TStreamModeDescriptor>},
    {"stream event", kStreamEvent, descriptorOf<TStreamEventDescriptor>},
    {"general event",
     descriptor(4, {0x00, 0x10, 0x01, 0xE4, 0xF0, 0x12, 0x34, 0x56, 0, 0, 0, 0, 0, 0x77, 0x12, 0x34, 'p'}),
     descriptorOf<TGeneralEventDescriptor>},
    {"Libras control message", descriptor(0x7C, Bytes(13, 0x01)), descriptorOf<TLCMDescriptor>},
    {"Libras data message", descriptor(0x7C, {0x02, 0x00, 0x06, 0x00, 0x04, 3, 'A', 'B', 'C'}),
     descriptorOf<TLDMDescriptor>},
};

} // namespace

TEST(InputIsReadOnly, EveryParseReadsItsInputOnly)
{
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        ReadOnlyBuffer data(c.bytes);
        EXPECT_TRUE(c.parse(data.data(), data.size()));
    }
}

// The harness catches a write: the old stream event tag, which the DSM-CC
// section table rewrites in place, faults on read-only pages.
TEST(InputIsReadOnlyDeathTest, TheOldStreamEventTagIsRewritten)
{
    Bytes old = kStreamEvent;
    old[0] = TStreamEventDescriptor::DESCRIPTOR_TAG_OLD;
    const Bytes bytes = SectionBuilder(0x3D).longHeader(0x1ABC, 1).bytes(old).build();
    ReadOnlyBuffer data(bytes);
    EXPECT_DEATH(table<TDSMCCSectionTable>(data.data(), data.size()), "");
}
