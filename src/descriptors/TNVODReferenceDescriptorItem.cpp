#include "TNVODReferenceDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 6;
}

TNVODReferenceDescriptorItem::TNVODReferenceDescriptorItem()
    : m_iTransportStreamID(0), m_iOriginalNetworkID(0), m_iServiceID(0)
{
}

TNVODReferenceDescriptorItem::~TNVODReferenceDescriptorItem() = default;

TNVODReferenceDescriptorItem* TNVODReferenceDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TNVODReferenceDescriptorItem* TNVODReferenceDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                                  U16* errorCode, const U8* limit)
{
    if (dataLength < kItemLength || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TNVODReferenceDescriptorItem::parse: Descriptor length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TNVODReferenceDescriptorItem* item = new TNVODReferenceDescriptorItem();
    item->m_iTransportStreamID = readU16(sectionData);
    item->m_iOriginalNetworkID = readU16(sectionData + 2);
    item->m_iServiceID = readU16(sectionData + 4);
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
