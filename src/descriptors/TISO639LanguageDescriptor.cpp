#include "TISO639LanguageDescriptor.h"

#include "../utils/ParserUtils.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kLanguageCodeLength = 3;
}

TISO639LanguageDescriptor::TISO639LanguageDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TISO639LanguageDescriptor::~TISO639LanguageDescriptor() = default;

// This descriptor never reports a parsed length, so the pattern is handed no
// out-parameter. Nor does its success path store a code of its own: what the
// caller finds is what the header check stored, ERROR_OK, the same value the
// pattern stores again.
TISO639LanguageDescriptor* TISO639LanguageDescriptor::parse(U8* sectionData, U32 dataLength, U32*,
                                                            U16* errorCode)
{
    return parseDescriptor<TISO639LanguageDescriptor>(sectionData, dataLength, nullptr, errorCode, nullptr);
}

TISO639LanguageDescriptor* TISO639LanguageDescriptor::parse(U8* sectionData, U32 dataLength, U32*, U16* errorCode,
                                                            const U8* limit)
{
    return parseDescriptor<TISO639LanguageDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TISO639LanguageDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    U8* body = m_pData + COMMON_HEADER_LENGTH;
    const U32 available = dataLength - COMMON_HEADER_LENGTH;
    // A code the descriptor holds but the section does not.
    if (available >= kLanguageCodeLength && !descriptorBytesInBuffer(body, limit, kLanguageCodeLength, errorCode))
        return FALSE;
    // Only the first language of the loop is kept and its audio_type is not
    // read: receivers select audio by the first code only.
    if (ParserUtils::parseStr(body, m_sLanguageCode, kLanguageCodeLength, available) <
        static_cast<S32>(kLanguageCodeLength)) {
        VURO_LOGW("%s: TISO639LanguageDescriptor:: parse: ERROR: parsing Language Code. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
