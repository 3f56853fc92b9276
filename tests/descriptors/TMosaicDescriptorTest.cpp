#include <gtest/gtest.h>

#include <descriptors/TMosaicDescriptor.h>

#include "DescriptorTestSupport.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

// Cell 1, video, elementary cells 1 and 2 (reserved bits set), bouquet 0x0010.
const Bytes kBouquetCell = {0x04, 0xF9, 0x02, 0xC1, 0xC2, 0x01, 0x00, 0x10};
// Cell 2, still picture, no elementary cells, event 0x1234 of service 0xE580.
const Bytes kEventCell = {0x08, 0x02, 0x00, 0x04, 0x04, 0x21, 0x04, 0x22, 0xE5, 0x80, 0x12, 0x34};

} // namespace

TEST(MosaicDescriptor, DecodesCellsOfEachLinkageUpToSixteen)
{
    LogCapture log;
    // 0x90: entry point set, 1 horizontal -> 2 x 1 cells.
    Parsed<TMosaicDescriptor> r(concat({{0x90}, kBouquetCell, kEventCell}));
    ASSERT_TRUE(r.decoded(21u));
    TMosaicDescriptor* d = r.object.get();
    EXPECT_EQ(d->isMosaicEntryPoint(), FALSE);
    EXPECT_EQ(d->getNumberOfHorizontalCells(), TMosaicDescriptor::NUMBER_OF_CELLS_2);
    EXPECT_EQ(d->getNumberOfVerticalCells(), TMosaicDescriptor::NUMBER_OF_CELLS_1);
    ASSERT_EQ(d->size(), 2u);
    const TMosaicDescriptorCell* bouquet = d->getCell(0);
    EXPECT_EQ(bouquet->getLogicalCellID(), 1);
    EXPECT_EQ(bouquet->getLogicalCellPresentationInfo(), TMosaicDescriptorCell::PRESENTATION_TYPE_VIDEO);
    ASSERT_EQ(bouquet->getElementaryCellFieldLength(), 2);
    EXPECT_EQ(bouquet->getElementaryCellIDs()[0], 1);
    EXPECT_EQ(bouquet->getElementaryCellIDs()[1], 2);
    EXPECT_EQ(bouquet->getCellLinkageInfo(), TMosaicDescriptorCell::LINKAGE_TYPE_BOUQUET_RELATED);
    EXPECT_EQ(bouquet->getBouquetID(), 0x0010);
    const TMosaicDescriptorCell* event = d->getCell(1);
    EXPECT_EQ(event->getLogicalCellID(), 2);
    EXPECT_EQ(event->getLogicalCellPresentationInfo(), TMosaicDescriptorCell::PRESENTATION_TYPE_STILL_PICTURE);
    EXPECT_EQ(event->getElementaryCellIDs(), nullptr);
    EXPECT_EQ(event->getOriginalNetworkID(), 0x0421);
    EXPECT_EQ(event->getTransportStreamID(), 0x0422);
    EXPECT_EQ(event->getServiceID(), 0xE580);
    EXPECT_EQ(event->getEventID(), 0x1234);
    EXPECT_EQ(d->getCell(2), nullptr);
    EXPECT_EQ(d->removeCell(0), TRUE);
    EXPECT_EQ(d->getCell(0), event);
    EXPECT_NO_LOG(log);

    Bytes body = {0xFF};
    for (int i = 0; i < 17; ++i)
        body.insert(body.end(), kBouquetCell.begin(), kBouquetCell.end());
    Parsed<TMosaicDescriptor> full(body);
    TMosaicDescriptor* capped = full.object.get();
    ASSERT_NE(capped, nullptr);
    EXPECT_EQ(capped->getNumberOfHorizontalCells(), 3);
    EXPECT_EQ(capped->getNumberOfVerticalCells(), 3);
    EXPECT_EQ(capped->isMosaicEntryPoint(), FALSE);
    EXPECT_EQ(capped->size(), 16u);
    EXPECT_EQ(full.parsedLength, 1u + 16 * 8);
}

TEST(MosaicDescriptor, CellFailures)
{
    expectRefused<TMosaicDescriptor>({0x00, 0x04, 0x01, 0x00, 0x00, 0x00}, kDescriptorLength,
                                     {"ISDBTUtils: TMosaicDescriptorCell::parse: Unknown Cell Linkage Info: 00 (0). "
                                      "Aborting!",
                                      "ISDBTUtils: TMosaicDescriptor::parse: Invalid Cell. Aborting!"});

    struct Case {
        Bytes cell;
        std::string line;
    };
    const Case cases[] = {
        {{0x04, 0x01, 0x00, 0x01}, "Item length not valid: 4. Aborting!"},
        {{0x04, 0x01, 0x02, 0x01, 0x01}, "Item length not valid: 1 < 2. Aborting!"},
        {{0x04, 0x01, 0x00, 0x01, 0x00}, "Item length not valid: 1 < 1. Aborting!"},
        {{0x04, 0x01, 0x00, 0x02, 0x00, 0x01, 0x00, 0x02, 0x00}, "Item length not valid: 5 < 6. Aborting!"},
        {{0x04, 0x01, 0x00, 0x04, 0x00, 0x01, 0x00, 0x02, 0x00, 0x03, 0x00}, "Item length not valid: 7 < 8. Aborting!"},
        {{0x04, 0x01, 0x00, 0x05, 0x00}, "Unknown Cell Linkage Info: 05 (5). Aborting!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        LogCapture log;
        ExactBuffer cell(c.cell);
        U16 code = 0;
        EXPECT_EQ(TMosaicDescriptorCell::parse(cell.data(), cell.size(), nullptr, &code), nullptr);
        EXPECT_EQ(code, kDataLength);
        EXPECT_WARNINGS(log, "ISDBTUtils: TMosaicDescriptorCell::parse: " + c.line);
    }
}
