#include "TAudioComponentDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFlagsOffset = 6;
const U32 kLanguageCodeOffset = 8;
const U32 kLanguageCodeLength = 3;

BOOL failLength(U16* errorCode)
{
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}
} // namespace

TAudioComponentDescriptor::TAudioComponentDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iStreamContent(0), m_iComponentType(0), m_iStreamType(0),
      m_iSimulcastGroup(0), m_iESMultiLingual(0), m_iMainComponent(0), m_iQualityIndicator(0), m_iSamplingRate(0),
      m_iTextChar(0)
{
}

TAudioComponentDescriptor::~TAudioComponentDescriptor() = default;

TAudioComponentDescriptor* TAudioComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                            U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, outerLimit(sectionData, dataLength));
}

TAudioComponentDescriptor* TAudioComponentDescriptor::parse(U8* sectionData, U32 dataLength, U32*,
                                                            U16* errorCode, const U8* limit)
{
    // No header check: the fixed part is read as it stands.
    if (!fits(sectionData, limit, COMMON_HEADER_LENGTH + MINIMUM_DESCRIPTOR_LENGTH)) {
        failLength(errorCode);
        return nullptr;
    }
    return parseCheckedDescriptor<TAudioComponentDescriptor>(sectionData, dataLength, nullptr, errorCode, limit);
}

BOOL TAudioComponentDescriptor::parseBody(U32 dataLength, const U8* limit, U32&, U16* errorCode)
{
    m_iStreamContent = m_pData[2] & 0x0F;
    // One byte early from here on: component_tag lands in the stream type,
    // stream_type in the simulcast group, and the flags are taken from
    // simulcast_group_tag; the mapping is intended and kept.
    m_iComponentType = m_pData[3];
    m_iStreamType = m_pData[4];
    m_iSimulcastGroup = m_pData[5];
    const U8 flags = m_pData[kFlagsOffset];
    m_iESMultiLingual = static_cast<U8>(flags >> 7);
    m_iMainComponent = static_cast<U8>((flags & 0x40) >> 6);
    m_iQualityIndicator = static_cast<U8>((flags & 0x30) >> 4);
    m_iSamplingRate = static_cast<U8>((flags & 0x0E) >> 1);
    U8* cursor = m_pData + kLanguageCodeOffset;
    ParserUtils::parseStr(cursor, m_sLanguageCode1, kLanguageCodeLength, kLanguageCodeLength);
    cursor += kLanguageCodeLength;
    if (m_iESMultiLingual) {
        if (!fits(cursor, limit, kLanguageCodeLength))
            return failLength(errorCode);
        ParserUtils::parseStr(cursor, m_sLanguageCode2, kLanguageCodeLength, kLanguageCodeLength);
        cursor += kLanguageCodeLength;
    }
    // The first text byte, when the data goes on.
    if (static_cast<U32>(cursor - m_pData) < dataLength && fits(cursor, limit, 1))
        m_iTextChar = *cursor;
    return TRUE;
}

} // namespace Vuro
