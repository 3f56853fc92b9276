#include "TTransportProtocolCarouselDescriptor.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kLocalSelector = 5;   // protocol_id, label, remote_connection, component_tag
const U32 kRemoteTriplet = 7;   // the three ids and component_tag after the first four bytes
const U32 kFirstFour = 4;       // protocol_id, label, remote_connection
} // namespace

TTransportProtocolCarouselDescriptor::TTransportProtocolCarouselDescriptor(Type type, U16 protocolId, U8* data,
                                                                           U32 length)
    : TTransportProtocolDescriptor(type, protocolId, data, length),
      m_bRemoteConnection(FALSE),
      m_iOriginalNetworkID(0),
      m_iTransportStreamID(0),
      m_iServiceID(0),
      m_iComponentTag(0)
{
}

TTransportProtocolCarouselDescriptor::TTransportProtocolCarouselDescriptor(
    Type type, U16 protocolId, const TTransportProtocolDescriptor* source)
    : TTransportProtocolCarouselDescriptor(type, protocolId, nullptr, 0)
{
    const auto* carousel = dynamic_cast<const TTransportProtocolCarouselDescriptor*>(source);
    if (!carousel)
        return;
    m_iTransportProtocolLabel = carousel->m_iTransportProtocolLabel;
    m_bRemoteConnection = carousel->m_bRemoteConnection;
    m_iOriginalNetworkID = carousel->m_iOriginalNetworkID;
    m_iTransportStreamID = carousel->m_iTransportStreamID;
    m_iServiceID = carousel->m_iServiceID;
    m_iComponentTag = carousel->m_iComponentTag;
}

TTransportProtocolCarouselDescriptor::~TTransportProtocolCarouselDescriptor() = default;

BOOL TTransportProtocolCarouselDescriptor::parseSelector(const char* lengthLine, U8* sectionData, U32 dataLength,
                                                         U32* parsedLength, U16* errorCode)
{
    const auto tooShort = [&](U32 value) {
        VURO_LOGW(lengthLine, VURO_LOG_ORIGIN, value);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    };
    if (dataLength < kLocalSelector)
        return tooShort(dataLength);
    if (!selectorFits(sectionData, kFirstFour))
        return tooShort(selectorBytesLeft(sectionData));
    m_iTransportProtocolLabel = sectionData[2];
    m_bRemoteConnection = (sectionData[3] & 0x80) ? TRUE : FALSE;
    U32 read = kLocalSelector;
    if (m_bRemoteConnection) {
        if (dataLength - kFirstFour < kRemoteTriplet)
            return tooShort(dataLength - kFirstFour);
        if (!selectorFits(sectionData, kFirstFour + kRemoteTriplet))
            return tooShort(selectorBytesLeft(sectionData));
        m_iOriginalNetworkID = readU16(sectionData + 4);
        m_iTransportStreamID = readU16(sectionData + 6);
        m_iServiceID = readU16(sectionData + 8);
        m_iComponentTag = sectionData[10];
        read = kFirstFour + kRemoteTriplet;
    } else {
        if (!selectorFits(sectionData, kLocalSelector))
            return tooShort(selectorBytesLeft(sectionData));
        m_iComponentTag = sectionData[4];
    }
    // Bytes after component_tag (the selector's private bytes) are not read.
    if (parsedLength)
        *parsedLength = read;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

} // namespace Vuro
