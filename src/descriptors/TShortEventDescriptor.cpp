#include "TShortEventDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

const U32 kLanguageCodeLength = 3;

// A length byte or string that would lie past the end of the buffer: the
// descriptor is refused as too long for its data.
BOOL failLength(U16* errorCode)
{
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

} // namespace

TShortEventDescriptor::TShortEventDescriptor(U8* data, U32 length) : TISDBTDescriptor(DESCRIPTOR_TAG, data, length)
{
}

TShortEventDescriptor::~TShortEventDescriptor() = default;

TShortEventDescriptor* TShortEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                    U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, outerLimit(sectionData, dataLength));
}

TShortEventDescriptor* TShortEventDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                    U16* errorCode, const U8* limit)
{
    if (!parseCommonHeader(sectionData, dataLength, errorCode, static_cast<U8>(MINIMUM_DESCRIPTOR_LENGTH),
                           DESCRIPTOR_TAG))
        return nullptr;
    if (parsedLength)
        *parsedLength = sectionData[1] + COMMON_HEADER_LENGTH;
    return parseCheckedDescriptor<TShortEventDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TShortEventDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    U8* cursor = m_pData + COMMON_HEADER_LENGTH;
    // Bound of the strings. It is deliberately kept as receivers have always
    // computed it: never reduced by the two length bytes, and reduced by the
    // language code a second time (together with the name, in 8 bits) before
    // the text; it may wrap, and then only the buffer bounds the text.
    U32 available = dataLength - COMMON_HEADER_LENGTH;
    // Inside an event the bound is the rest of the event's data, which may
    // reach past the buffer: the code must lie inside it too.
    if (kLanguageCodeLength <= available && !fits(cursor, limit, kLanguageCodeLength))
        return failLength(errorCode);
    if (ParserUtils::parseStr(cursor, m_sLanguageCode, kLanguageCodeLength, available) !=
        static_cast<S32>(kLanguageCodeLength)) {
        VURO_LOGW("%s: TShortEventDescriptor:: parse: ERROR: parsing Language Code. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    U8 parsed = kLanguageCodeLength;
    cursor += kLanguageCodeLength;
    available -= kLanguageCodeLength;

    // The length bytes and strings may lie past the descriptor (the bound is
    // the loop's remainder), but never past the buffer.
    if (!fits(cursor, limit, 1))
        return failLength(errorCode);
    const U8 nameLength = *cursor++;
    if (nameLength != 0) {
        if (nameLength <= available && !fits(cursor, limit, nameLength))
            return failLength(errorCode);
        const S32 read = ParserUtils::parseStr(cursor, m_sEventName, nameLength, available);
        if (read != nameLength) {
            // "lentgth" is the spelling receivers' log filters match.
            VURO_LOGW("%s: TShortEventDescriptor:: parse: ERROR: parsing Event name. Aborting! l_iStrLength: %d "
                      "event_name_lentgth: %d",
                      VURO_LOG_ORIGIN, read, nameLength);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
            return FALSE;
        }
        cursor += nameLength;
    }
    parsed = static_cast<U8>(parsed + nameLength);
    available -= parsed;

    if (!fits(cursor, limit, 1))
        return failLength(errorCode);
    const U8 textLength = *cursor++;
    if (textLength != 0) {
        if (textLength <= available && !fits(cursor, limit, textLength))
            return failLength(errorCode);
        const S32 read = ParserUtils::parseStr(cursor, m_sEventDescription, textLength, available);
        if (read != textLength) {
            VURO_LOGW("%s: TShortEventDescriptor:: parse: ERROR: parsing Event description. Aborting! "
                      "l_iStrLength: %d event_descr_length: %d",
                      VURO_LOG_ORIGIN, read, textLength);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
            return FALSE;
        }
    }
    return TRUE;
}

} // namespace Vuro
