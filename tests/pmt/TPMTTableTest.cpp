#include <gtest/gtest.h>

#include <memory>

#include <pmt/TPMTTable.h>

#include "../support/LogCapture.h"
#include "../support/RefusalExpect.h"
#include "PmtBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::unique_ptr<TPMTTable> parse(ExactBuffer& data, U16* code)
{
    return std::unique_ptr<TPMTTable>(TPMTTable::parse(data.data(), data.size(), FALSE, TRUE, code, nullptr));
}

// The section is refused with the given code.
::testing::AssertionResult refused(const Bytes& bytes, U16 expected)
{
    return refusedBy([](ExactBuffer& data, U16* code) { return parse(data, code); }, bytes, expected);
}

// A header with section_length 5, which wraps the body count, then PCR_PID 0x100 and the given bytes.
Bytes wrappedBody(const Bytes& rest)
{
    return concat({{0x02, 0xB0, 0x05, 0x00, 0x01, 0xC3, 0x00, 0x00, 0xE1, 0x00}, rest});
}

// Copy free with maximum bitrate 0x50 (20 Mbit/s), copy control type 3, APS 1.
const Bytes kCopyControl = descriptor(0xC1, {0x2D, 0x50});
const Bytes kAvailability = descriptor(0xDE, {0xDA});

// Full-seg video, one-seg video, AAC audio in Portuguese, data carousel.
Bytes programme()
{
    return pmtSection(
        0xE580, 0x0111, concat({kCopyControl, kAvailability}),
        concat({streamEntry(0x1B, 0x0111, concat({descriptor(0x52, {0x00}), descriptor(0xC8, {0x07})})),
                streamEntry(0x1B, 0x0181, descriptor(0x52, {0x81})),
                streamEntry(0x0F, 0x0112,
                            concat({descriptor(0x52, {0x10}), descriptor(0x7C, {0x29, 0x00}),
                                    descriptor(0x0A, {'p', 'o', 'r', 0x00})})),
                streamEntry(0x0D, 0x0114,
                            concat({descriptor(0x52, {0x40}), descriptor(0xFD, {0x00, 0x0C}),
                                    descriptor(0x13, {0x00, 0x00, 0x00, 0x0A})}))}));
}

} // namespace

TEST(PMTTable, OneSegAndFullSegProgrammeWithInheritedDescriptors)
{
    LogCapture log;
    ExactBuffer data(programme());
    U16 code = 0xBEEF;
    std::unique_ptr<TPMTTable> table = parse(data, &code);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(code, TISDBTTable::ERROR_OK);
    EXPECT_EQ(table->getType(), TISDBTTable::PMT);
    EXPECT_EQ(table->getProgramNumber(), 0xE580);
    EXPECT_EQ(table->getPCRPID(), 0x0111);

    TDigitalCopyControlDescriptor* copy = table->getDigitalCopyControlDescriptor();
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->getMaximumBitrate(), 0x50);
    EXPECT_EQ(copy->getCopyControlType(), 3);
    EXPECT_EQ(table->getContentAvailabilityDescriptor()->isRetentionMode(), FALSE);
    EXPECT_EQ(table->getDescriptor(0xC1), copy);
    EXPECT_EQ(table->getDescriptor(0xDE), nullptr);
    EXPECT_EQ(table->getDescriptorTags(), (std::list<U8>{0xC1}));
    // Descriptors borrow the table's own copy of the section.
    EXPECT_EQ(copy->getData(), table->getData() + 12);

    ASSERT_EQ(table->size(), 4u);
    TProgramMap* fullSeg = table->getProgramMap(0);
    TProgramMap* oneSeg = table->getProgramMap(1);
    TProgramMap* audio = table->getProgramMap(2);
    TProgramMap* data0D = table->getProgramMap(3);
    EXPECT_EQ(table->getProgramMap(4), nullptr);
    EXPECT_EQ(fullSeg->getElementaryPID(), 0x0111);
    EXPECT_EQ(fullSeg->getDescriptorTags(), (std::list<U8>{0x52, 0xC8}));
    EXPECT_EQ(oneSeg->getElementaryPID(), 0x0181);
    EXPECT_EQ(audio->getAACDescriptor(FALSE, nullptr)->hasAACType(), FALSE);
    EXPECT_EQ(audio->getISO639LanguageDescriptor(FALSE, nullptr)->getLanguageCode(), "por");
    EXPECT_EQ(data0D->getCarouselIdentifierDescriptor(FALSE, nullptr)->getCarouselID(), 10u);
    EXPECT_EQ(data0D->getDescriptorTags(), (std::list<U8>{0x52, 0xFD, 0x13}));

    const std::list<TProgramMap*> videos{fullSeg, oneSeg};
    EXPECT_EQ(table->getProgramMapByStreamType(TProgramMap::STREAM_TYPE_VIDEO), videos);
    EXPECT_EQ(table->getProgramMapsByStreamType(TProgramMap::STREAM_TYPE_VIDEO), videos);
    EXPECT_TRUE(table->getProgramMapByStreamType(TProgramMap::STREAM_TYPE_AC3).empty());
    EXPECT_EQ(table->getProgramMapByComponentTag(0x81), (std::list<TProgramMap*>{oneSeg}));
    EXPECT_EQ(table->getProgramMapByComponentTag(0x10), (std::list<TProgramMap*>{audio}));
    EXPECT_TRUE(table->getProgramMapByComponentTag(0x82).empty());
    EXPECT_EQ(table->getProgramMap(0x0D, 0x0C), (std::list<TProgramMap*>{data0D}));
    EXPECT_TRUE(table->getProgramMap(0x06, 0x0C).empty());
    EXPECT_NO_LOG(log);

    // Streams inherit programme descriptors only when linked.
    BOOL inherited = FALSE;
    // The parse leaves the parent link unset.
    EXPECT_EQ(audio->getDigitalCopyControlDescriptor(TRUE, &inherited), nullptr);
    EXPECT_EQ(inherited, FALSE);

    audio->setParentPMTTable(table.get());
    EXPECT_EQ(audio->getDigitalCopyControlDescriptor(FALSE, &inherited), nullptr);
    EXPECT_EQ(audio->getDigitalCopyControlDescriptor(TRUE, &inherited), table->getDigitalCopyControlDescriptor());
    EXPECT_EQ(inherited, TRUE);
    EXPECT_EQ(audio->getContentAvailabilityDescriptor(TRUE, nullptr), table->getContentAvailabilityDescriptor());
    // No programme-level copyright: null, flag untouched.
    inherited = FALSE;
    EXPECT_EQ(audio->getCopyrightDescriptor(TRUE, &inherited), nullptr);
    EXPECT_EQ(inherited, FALSE);
    // The stream's own descriptor wins without touching the flag.
    EXPECT_EQ(audio->getStreamIdentifierDescriptor(TRUE, &inherited)->getComponentTag(), 0x10);
    EXPECT_EQ(inherited, FALSE);
    // Inherited descriptors are not found by tag.
    EXPECT_EQ(audio->getDescriptor(0xC1), nullptr);

    // Remove by position; out of range is refused.
    EXPECT_EQ(table->removeProgramMap(4), FALSE);
    EXPECT_EQ(table->removeProgramMap(0), TRUE);
    EXPECT_EQ(table->size(), 3u);
    EXPECT_EQ(table->getProgramMap(0), oneSeg);
    table->addProgramMap(new TProgramMap());
    EXPECT_EQ(table->getProgramMap(3)->getStreamType(), 0);
}

TEST(PMTTable, EmptyProgrammeAndCarouselTrace)
{
    LogCapture log;
    ExactBuffer empty(pmtSection(1, 0x1FFF, {}, {}));
    std::unique_ptr<TPMTTable> table = parse(empty, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->size(), 0u);

    // Two carousel identifiers, an empty one and an unknown tag: the later
    // carousel identifier wins, each one is traced.
    ExactBuffer carousels(pmtSection(1, 0x0100,
                                     concat({descriptor(0x13, {0, 0, 0, 1}), descriptor(0x13, {}),
                                             descriptor(0x09, {0x05, 0x01}), descriptor(0x13, {0, 0, 0, 2})}),
                                     {}));
    table = parse(carousels, nullptr);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->getCarouselIdentifierDescriptor()->getCarouselID(), 2u);
    EXPECT_EQ(table->getDescriptorTags(), (std::list<U8>{0x13}));
    EXPECT_WARNINGS(log, "ISDBTUtils: TPMTTable::parse: Parsing Carousel Identifier Descriptor...",
                    "ISDBTUtils: TPMTTable::parse: Parsing Carousel Identifier Descriptor...");
}

TEST(PMTTable, RefusedSections)
{
    LogCapture log;
    const U16 length = TISDBTTable::ERROR_INVALID_DATA_LENGTH, item = TISDBTTable::ERROR_INVALID_ITEM;
    // program_info_length 4 with 3 body bytes after the fixed fields.
    EXPECT_TRUE(refused(SectionBuilder(0x02).longHeader(1, 1).u16(0xE100).u16(0xF004).bytes({0x52, 0x01, 0x00}).build(),
                        TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH));
    // With the wrapped body count program_info_length 0xFFF only fails against
    // the data length, and so does a descriptor length (the loose bound).
    EXPECT_TRUE(refused(wrappedBody({0xFF, 0xFF, 0x00, 0x00}), length));
    EXPECT_TRUE(refused(wrappedBody({0xF0, 0x05, 0x13, 0x0F, 0x00, 0x00}), length));
    // A programme-level language descriptor is checked.
    EXPECT_TRUE(refused(pmtSection(1, 0x0100, descriptor(0x0A, {'p', 'o'}), {}), TISDBTTable::ERROR_INVALID_STRING));
    // Three bytes after the last stream: the entry's line, then the table's.
    EXPECT_TRUE(refused(pmtSection(1, 0x0100, {}, concat({streamEntry(0x0F, 0x0112, {}), {0x1B, 0xE1, 0x11}})), item));
    // Reads stop at the end of the buffer. Ten bytes: it ends inside PCR_PID /
    // program_info_length.
    EXPECT_TRUE(refused({0x02, 0xB0, 0x07, 0x00, 0x01, 0xC3, 0x00, 0x00, 0xE1, 0x00}, length));
    // A carousel identifier within the loose bound but past the buffer: traced,
    // then refused unread.
    EXPECT_TRUE(refused(pmtSection(1, 0x0100, {0x13, 0x10, 0x01}, {}), length));
    // An unknown one that closes the loop is skipped unread; the streams then
    // start at the end of the buffer, where the first entry fails.
    EXPECT_TRUE(refused(wrappedBody({0xF0, 0x0B, 0x09, 0x09, 0x00}), item));
    EXPECT_WARNINGS(log, "ISDBTUtils: TPMTTable::parse: Longer data length is required: 3 < 4. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Item length not valid: 4095 > 14. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Item length not valid: 15 > 14. Aborting!",
                    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: 3 > 2. "
                    "Aborting!",
                    "ISDBTUtils: TISO639LanguageDescriptor:: parse: ERROR: parsing Language Code. Aborting!",
                    "ISDBTUtils: TProgramMap::parse: Item length not valid: 3. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Invalid item. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Item length not valid: 4 > 2. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Parsing Carousel Identifier Descriptor...",
                    "ISDBTUtils: TPMTTable::parse: Item length not valid: 16 > 5. Aborting!",
                    "ISDBTUtils: TProgramMap::parse: Item length not valid: 0. Aborting!",
                    "ISDBTUtils: TPMTTable::parse: Invalid item. Aborting!");
}
