#include "TMosaicDescriptorCell.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

// logical_cell_id, presentation info, elementary_cell_field_length and
// cell_linkage_info.
const U32 kMinimumCellLength = 5;
const U32 kFieldLengthOffset = 2;
const U32 kFirstElementaryCellOffset = 3;

TMosaicDescriptorCell* fail(U16* errorCode)
{
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return nullptr;
}

TMosaicDescriptorCell* failLength(U32 available, U32 needed, U16* errorCode)
{
    VURO_LOGW("%s: TMosaicDescriptorCell::parse: Item length not valid: %u < %u. Aborting!", VURO_LOG_ORIGIN,
              available, needed);
    return fail(errorCode);
}

} // namespace

TMosaicDescriptorCell::TMosaicDescriptorCell()
    : m_iLogicalCellID(0), m_iLogicalCellPresentationInfo(0), m_iElementaryCellFieldLength(0),
      m_pElementaryCellIDs(nullptr), m_iCellLinkageInfo(0), m_iBouquetID(0), m_iOriginalNetworkID(0),
      m_iTransportStreamID(0), m_iServiceID(0), m_iEventID(0)
{
}

TMosaicDescriptorCell::~TMosaicDescriptorCell()
{
    freeBlock(m_pElementaryCellIDs);
}

TMosaicDescriptorCell* TMosaicDescriptorCell::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                    U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TMosaicDescriptorCell* TMosaicDescriptorCell::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                    U16* errorCode, const U8* limit)
{
    // Every read below is checked against dataLength, which must lie inside
    // the buffer.
    if (dataLength < kMinimumCellLength || !fits(sectionData, limit, dataLength)) {
        VURO_LOGW("%s: TMosaicDescriptorCell::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength);
        return fail(errorCode);
    }
    const U8 fieldLength = sectionData[kFieldLengthOffset];
    if (fieldLength > dataLength - 4)
        return failLength(dataLength - 4, fieldLength, errorCode);
    const U8* linkagePosition = sectionData + kFirstElementaryCellOffset + fieldLength;
    const U8 linkage = *linkagePosition;
    const U32 left = dataLength - 4 - fieldLength;
    U32 linkageLength = 0;
    switch (linkage) {
    case LINKAGE_TYPE_BOUQUET_RELATED:
        // bouquet_id takes 2 bytes, but the line has always named 1.
        if (left < 2)
            return failLength(left, 1, errorCode);
        linkageLength = 2;
        break;
    case LINKAGE_TYPE_SERVICE_RELATED:
    case LINKAGE_TYPE_OTHER_MOSAIC_RELATED:
        linkageLength = 6;
        break;
    case LINKAGE_TYPE_EVENT_RELATED:
        linkageLength = 8;
        break;
    default:
        VURO_LOGW("%s: TMosaicDescriptorCell::parse: Unknown Cell Linkage Info: %02X (%d). Aborting!",
                  VURO_LOG_ORIGIN, linkage, linkage);
        return fail(errorCode);
    }
    if (left < linkageLength)
        return failLength(left, linkageLength, errorCode);

    TMosaicDescriptorCell* cell = new TMosaicDescriptorCell();
    cell->m_iLogicalCellID = static_cast<U8>(sectionData[0] >> 2);
    cell->m_iLogicalCellPresentationInfo = sectionData[1] & 0x07;
    cell->m_iElementaryCellFieldLength = fieldLength;
    if (fieldLength != 0) {
        cell->m_pElementaryCellIDs = newBlock<U8>(fieldLength);
        for (U32 i = 0; i < fieldLength; ++i)
            cell->m_pElementaryCellIDs[i] = sectionData[kFirstElementaryCellOffset + i] & 0x3F;
    }
    cell->m_iCellLinkageInfo = linkage;
    const U8* ids = linkagePosition + 1;
    if (linkage == LINKAGE_TYPE_BOUQUET_RELATED) {
        cell->m_iBouquetID = readU16(ids);
    } else {
        cell->m_iOriginalNetworkID = readU16(ids);
        cell->m_iTransportStreamID = readU16(ids + 2);
        cell->m_iServiceID = readU16(ids + 4);
        if (linkage == LINKAGE_TYPE_EVENT_RELATED)
            cell->m_iEventID = readU16(ids + 6);
    }
    if (itemLength)
        *itemLength = kFirstElementaryCellOffset + fieldLength + 1 + linkageLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return cell;
}

} // namespace Vuro
