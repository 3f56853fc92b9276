#include "TNVODReferenceDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TNVODReferenceDescriptor::TNVODReferenceDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TNVODReferenceDescriptor::~TNVODReferenceDescriptor() = default;

TNVODReferenceDescriptor* TNVODReferenceDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode)
{
    return parseDescriptor<TNVODReferenceDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TNVODReferenceDescriptor* TNVODReferenceDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode, const U8* limit)
{
    return parseDescriptor<TNVODReferenceDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TNVODReferenceDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    if (!parseItemsToEnd<TNVODReferenceDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TNVODReferenceDescriptorItem* item, U32) { m_pItems.add(item); })) {
        VURO_LOGW("%s: TNVODReferenceDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
