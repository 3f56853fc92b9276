#include "TContentDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

TContentDescriptor::TContentDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), contentNibbleLevel1(0), contentNibbleLevel2(0), userByte(0)
{
}

TContentDescriptor::~TContentDescriptor() = default;

TContentDescriptor* TContentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, outerLimit(sectionData, dataLength));
}

TContentDescriptor* TContentDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode,
                                              const U8* limit)
{
    const U32 required = COMMON_HEADER_LENGTH + MINIMUM_DESCRIPTOR_LENGTH;
    if (dataLength < required || !fits(sectionData, limit, required)) {
        VURO_LOGW("%s: TContentDescriptor::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    return parseCheckedDescriptor<TContentDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TContentDescriptor::parseBody(U32, const U8*, U32&, U16*)
{
    contentNibbleLevel1 = static_cast<U8>(m_pData[2] >> 4);
    contentNibbleLevel2 = m_pData[2] & 0x0F;
    userByte = m_pData[3];
    return TRUE;
}

} // namespace Vuro
