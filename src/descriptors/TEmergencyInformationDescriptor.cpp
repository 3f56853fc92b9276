#include "TEmergencyInformationDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TEmergencyInformationDescriptor::TEmergencyInformationDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TEmergencyInformationDescriptor::~TEmergencyInformationDescriptor() = default;

TEmergencyInformationDescriptor* TEmergencyInformationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                        U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TEmergencyInformationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                            nullptr);
}

TEmergencyInformationDescriptor* TEmergencyInformationDescriptor::parse(U8* sectionData, U32 dataLength,
                                                                        U32* parsedLength, U16* errorCode,
                                                                        const U8* limit)
{
    return parseDescriptor<TEmergencyInformationDescriptor>(sectionData, dataLength, parsedLength, errorCode,
                                                            limit);
}

BOOL TEmergencyInformationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                                U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    // Items back to back until the body count is exactly zero; the count
    // reported is the last item's length.
    if (!parseItemsToEnd<TEmergencyInformationDescriptorItem>(
            position, remaining, limit, parsedLength, errorCode,
            [this](TEmergencyInformationDescriptorItem* item, U32) { m_pItems.add(item); })) {
        VURO_LOGW("%s: TEmergencyInformationDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
