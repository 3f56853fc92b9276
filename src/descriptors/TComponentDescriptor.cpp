#include "TComponentDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kLanguageCodeOffset = 5;
const U32 kLanguageCodeLength = 3;
const U32 kTextOffset = 8;
} // namespace

TComponentDescriptor::TComponentDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iStreamContent(0), m_iComponentType(0), m_iComponentTag(0)
{
}

TComponentDescriptor::~TComponentDescriptor() = default;

TComponentDescriptor* TComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode)
{
    return parseDescriptor<TComponentDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TComponentDescriptor* TComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode, const U8* limit)
{
    return parseDescriptor<TComponentDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TComponentDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // A descriptor_length running past the buffer stops at its end, field by
    // field (the class has no length line).
    if (!descriptorBytesInBuffer(m_pData, limit, kLanguageCodeOffset, errorCode))
        return FALSE;
    m_iStreamContent = m_pData[2] & 0x0F;
    m_iComponentType = m_pData[3];
    m_iComponentTag = m_pData[4];
    if (!descriptorBytesInBuffer(m_pData + kLanguageCodeOffset, limit, kLanguageCodeLength, errorCode))
        return FALSE;
    if (ParserUtils::parseStr(m_pData + kLanguageCodeOffset, m_sLanguageCode, kLanguageCodeLength,
                              dataLength - kLanguageCodeOffset) != static_cast<S32>(kLanguageCodeLength)) {
        VURO_LOGW("%s: TComponentDescriptor:: parse: ERROR: parsing Language Code. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    const U32 textLength = dataLength - kTextOffset;
    if (!descriptorBytesInBuffer(m_pData + kTextOffset, limit, textLength, errorCode))
        return FALSE;
    const S32 read = ParserUtils::parseStr(m_pData + kTextOffset, m_sText, textLength, textLength);
    if (read != static_cast<S32>(textLength)) {
        VURO_LOGW("%s: TComponentDescriptor:: parse: ERROR: parsing Text. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    // The text's bytes plus three, the count this descriptor has always
    // reported (not the body length); intended.
    parsedLength = static_cast<U32>(read) + kLanguageCodeLength;
    return TRUE;
}

} // namespace Vuro
