#include "TBouquetNameDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

TBouquetNameDescriptor::TBouquetNameDescriptor(U8* data, U32 length) : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TBouquetNameDescriptor::~TBouquetNameDescriptor() = default;

TBouquetNameDescriptor* TBouquetNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode)
{
    return parseDescriptor<TBouquetNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TBouquetNameDescriptor* TBouquetNameDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                      U16* errorCode, const U8* limit)
{
    return parseDescriptor<TBouquetNameDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TBouquetNameDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    const U32 nameLength = dataLength - COMMON_HEADER_LENGTH;
    // The name past the end of the buffer (no length line).
    if (!descriptorBytesInBuffer(m_pData + COMMON_HEADER_LENGTH, limit, nameLength, errorCode))
        return FALSE;
    const S32 read = ParserUtils::parseStr(m_pData + COMMON_HEADER_LENGTH, m_sBouquetName, nameLength, nameLength);
    if (read < 0) {
        VURO_LOGW("%s: TBouquetNameDescriptor:: parse: ERROR: parsing Bouquet Name. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    // Reported in 8 bits, the width of the descriptor_length it mirrors.
    parsedLength = static_cast<U8>(read);
    return TRUE;
}

} // namespace Vuro
