#include "TNetworkNameDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

TNetworkNameDescriptor::TNetworkNameDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_sNetworkName()
{
}

TNetworkNameDescriptor::~TNetworkNameDescriptor() = default;

TNetworkNameDescriptor* TNetworkNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TNetworkNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TNetworkNameDescriptor* TNetworkNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TNetworkNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TNetworkNameDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    const U32 nameLength = dataLength - COMMON_HEADER_LENGTH;
    const S32 consumed = ParserUtils::parseStr(m_pData + COMMON_HEADER_LENGTH, m_sNetworkName, nameLength, nameLength);
    if (consumed < 0 || static_cast<U32>(consumed) != nameLength) {
        // The blank after "::" is part of the line receivers match on.
        VURO_LOGW("%s: TNetworkNameDescriptor:: parse: ERROR: parsing Network Name. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    parsedLength = static_cast<U32>(consumed);
    return TRUE;
}

} // namespace Vuro
