#include "TDIILocationDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 4;
} // namespace

TDIILocationDescriptorItem::TDIILocationDescriptorItem() : m_iDIIIdentification(0), m_iAssociationTag(0)
{
}

TDIILocationDescriptorItem::~TDIILocationDescriptorItem() = default;

TDIILocationDescriptorItem* TDIILocationDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                              U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TDIILocationDescriptorItem* TDIILocationDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                              U16* errorCode, const U8* limit)
{
    if (dataLength < kItemLength || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TDIILocationDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kItemLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TDIILocationDescriptorItem* item = new TDIILocationDescriptorItem();
    item->m_iDIIIdentification = static_cast<U16>(readU16(sectionData) & 0x7FFF);
    item->m_iAssociationTag = readU16(sectionData + 2);
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
