#include "TServiceListDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TServiceListDescriptor::TServiceListDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TServiceListDescriptor::~TServiceListDescriptor() = default;

TServiceListDescriptor* TServiceListDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TServiceListDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TServiceListDescriptor* TServiceListDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TServiceListDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

void TServiceListDescriptor::add(TServiceListDescriptorItem* item)
{
    if (item)
        m_pItems.add(item->getServiceID(), item);
}

BOOL TServiceListDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    if (!parseItemsToEnd<TServiceListDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TServiceListDescriptorItem* item, U32) { m_pItems.store(item->getServiceID(), item); })) {
        VURO_LOGW("%s: TServiceListDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
