#include "TTSInformationDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFixedLength = 2; // remote_control_key_id, name length / type count
}

TTSInformationDescriptor::TTSInformationDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iRCKeyID(0), m_sTSName(),
      m_iTxType(TISDBTTable::TX_TYPE_LAYERINVALID)
{
}

TTSInformationDescriptor::~TTSInformationDescriptor() = default;

TTSInformationDescriptor* TTSInformationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode)
{
    return parseDescriptor<TTSInformationDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TTSInformationDescriptor* TTSInformationDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                          U16* errorCode, const U8* limit)
{
    return parseDescriptor<TTSInformationDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TTSInformationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    if (!requireData(dataLength, limit, errorCode))
        return FALSE;
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    U32 remaining = dataLength - COMMON_HEADER_LENGTH;
    m_iRCKeyID = position[0];
    const U32 nameLength = position[1] >> 2;
    const U32 typeCount = position[1] & 0x03;
    U32 parsed = kFixedLength;
    position += kFixedLength;
    remaining -= kFixedLength;

    if (nameLength != 0 && ParserUtils::parseStr(position, m_sTSName, nameLength, remaining) !=
                               static_cast<S32>(nameLength)) {
        // The blank after "::" is part of the line receivers match on.
        VURO_LOGW("%s: TTSInformationDescriptor:: parse: ERROR: parsing TS Name. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    position += nameLength;
    parsed += nameLength;
    remaining -= nameLength;

    // transmission_type_count items; only their own checks bound them, so the
    // remaining count may wrap and the next item is then bounded by the buffer.
    U32 lastItemLength = 0;
    if (!parseItems<TTSInformationDescriptorItem>(
            position, remaining, limit, lastItemLength, errorCode,
            [this, typeCount](U32) { return m_pItems.size() < typeCount; },
            [this, &parsed](TTSInformationDescriptorItem* item, U32 itemLength) {
                m_pItems.add(item);
                parsed += itemLength;
            })) {
        VURO_LOGW("%s: TTSInformationDescriptor::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }

    switch (m_pItems.size()) {
    case 1:
        m_iTxType = TISDBTTable::TX_TYPE_LAYERA;
        break;
    case 2:
        m_iTxType = TISDBTTable::TX_TYPE_LAYERAB;
        break;
    case 3:
        m_iTxType = TISDBTTable::TX_TYPE_LAYERABC;
        break;
    default:
        m_iTxType = TISDBTTable::TX_TYPE_LAYERINVALID;
        break;
    }
    parsedLength = parsed;
    return TRUE;
}

} // namespace Vuro
