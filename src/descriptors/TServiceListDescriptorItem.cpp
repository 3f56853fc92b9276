#include "TServiceListDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kItemLength = 3;
}

TServiceListDescriptorItem::TServiceListDescriptorItem() : m_iServiceID(0), m_iServiceType(0)
{
}

TServiceListDescriptorItem::~TServiceListDescriptorItem() = default;

TServiceListDescriptorItem* TServiceListDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                              U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TServiceListDescriptorItem* TServiceListDescriptorItem::parse(U8* sectionData, U32 dataLength, U32* itemLength,
                                                              U16* errorCode, const U8* limit)
{
    // Two bytes admit the item (the third, service_type, is read all the
    // same); it is read only while it lies inside the buffer.
    if (dataLength <= 1 || !fits(sectionData, limit, kItemLength)) {
        VURO_LOGW("%s: TServiceListDescriptorItem::parse: Descriptor length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TServiceListDescriptorItem* item = new TServiceListDescriptorItem();
    item->m_iServiceID = static_cast<U8>(sectionData[0] | sectionData[1]);
    item->m_iServiceType = sectionData[2];
    if (itemLength)
        *itemLength = kItemLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
