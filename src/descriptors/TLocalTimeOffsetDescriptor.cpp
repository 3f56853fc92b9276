#include "TLocalTimeOffsetDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TLocalTimeOffsetDescriptor::TLocalTimeOffsetDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length - COMMON_HEADER_LENGTH)
{
}

TLocalTimeOffsetDescriptor::~TLocalTimeOffsetDescriptor() = default;

TLocalTimeOffsetDescriptor* TLocalTimeOffsetDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode)
{
    return parseDescriptor<TLocalTimeOffsetDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TLocalTimeOffsetDescriptor* TLocalTimeOffsetDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode, const U8* limit)
{
    return parseDescriptor<TLocalTimeOffsetDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

void TLocalTimeOffsetDescriptor::add(TLocalTimeOffsetDescriptorItem* item)
{
    if (item)
        m_pItems.add(item->getCountryCode(), item);
}

BOOL TLocalTimeOffsetDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    if (!parseItemsToEnd<TLocalTimeOffsetDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TLocalTimeOffsetDescriptorItem* item, U32) { m_pItems.store(item->getCountryCode(), item); })) {
        // This class reports the bytes left at the failing item instead of an
        // "Invalid item" line.
        VURO_LOGW("%s: TLocalTimeOffsetDescriptor::parse: Descriptor length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, remaining);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
