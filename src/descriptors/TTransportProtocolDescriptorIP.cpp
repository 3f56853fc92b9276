#include "TTransportProtocolDescriptorIP.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"
#include "ApplicationDescriptorSupport.h"

namespace Vuro {

namespace {
const U32 kMinimumSelector = 5; // protocol_id, label, remote_connection, alignment_indicator
const U32 kFirstFour = 4;       // protocol_id, label, remote_connection
const U32 kRemoteIds = 6;       // original_network_id, transport_stream_id, service_id
const U32 kRemoteNeeds = 7;     // the three ids and the alignment byte

} // namespace

TTransportProtocolDescriptorIP::TTransportProtocolDescriptorIP(U8* data, U32 length)
    : TTransportProtocolDescriptor(IP, 2, data, length),
      m_bRemoteConnection(FALSE),
      m_iOriginalNetworkID(0),
      m_iTransportStreamID(0),
      m_iServiceID(0),
      m_bAlignmentIndicator(FALSE)
{
}

TTransportProtocolDescriptorIP::TTransportProtocolDescriptorIP(std::string url)
    : TTransportProtocolDescriptorIP(nullptr, 0)
{
    m_pURLs.push_back(url);
}

TTransportProtocolDescriptorIP::TTransportProtocolDescriptorIP(TTransportProtocolDescriptorIP* source)
    : TTransportProtocolDescriptorIP(nullptr, 0)
{
    if (!source)
        return;
    m_iTransportProtocolLabel = source->m_iTransportProtocolLabel;
    m_bRemoteConnection = source->m_bRemoteConnection;
    m_iOriginalNetworkID = source->m_iOriginalNetworkID;
    m_iTransportStreamID = source->m_iTransportStreamID;
    m_iServiceID = source->m_iServiceID;
    m_bAlignmentIndicator = source->m_bAlignmentIndicator;
    m_pURLs = source->m_pURLs;
}

TTransportProtocolDescriptorIP::~TTransportProtocolDescriptorIP() = default;

std::string TTransportProtocolDescriptorIP::getURL(U8 index) const
{
    auto it = walkList(m_pURLs, index);
    return it == m_pURLs.end() ? std::string() : *it;
}

BOOL TTransportProtocolDescriptorIP::removeURL(U8 index)
{
    auto it = walkList(m_pURLs, index);
    if (it == m_pURLs.end())
        return FALSE;
    m_pURLs.erase(it);
    return TRUE;
}

BOOL TTransportProtocolDescriptorIP::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    const auto tooShort = [&](U32 value) {
        VURO_LOGW("%s: TTransportProtocolDescriptorIP::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  value);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    };
    if (dataLength < kMinimumSelector)
        return tooShort(dataLength);
    if (!selectorFits(sectionData, kFirstFour))
        return tooShort(selectorBytesLeft(sectionData));
    m_iTransportProtocolLabel = sectionData[2];
    m_bRemoteConnection = (sectionData[3] & 0x80) ? TRUE : FALSE;
    U8* position = sectionData + kFirstFour;
    U32 remaining = dataLength - kFirstFour;
    U32 read = kFirstFour;
    if (m_bRemoteConnection) {
        if (remaining < kRemoteNeeds)
            return tooShort(remaining);
        if (!selectorFits(position, kRemoteIds))
            return tooShort(selectorBytesLeft(position));
        m_iOriginalNetworkID = readU16(position);
        m_iTransportStreamID = readU16(position + 2);
        m_iServiceID = readU16(position + 4);
        position += kRemoteIds;
        remaining = dataLength - (kFirstFour + kRemoteIds);
        read = kFirstFour + kRemoteIds;
    }
    if (!selectorFits(position, 1))
        return tooShort(selectorBytesLeft(position));
    m_bAlignmentIndicator = (position[0] & 0x80) ? TRUE : FALSE;
    ++position;
    --remaining;
    ++read;
    while (remaining != 0) {
        std::string url;
        if (!selectorStringFits(position, remaining))
            return tooShort(selectorBytesLeft(position));
        const S32 consumed = ParserUtils::parseStr(position, url, 0, remaining);
        if (consumed < 0) {
            // The line names the application name item although the URL
            // failed; log parsers match it word for word, so it is kept.
            VURO_LOGW("%s: TApplicationNameDescriptorItem:: parse: ERROR: parsing Name. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
            return FALSE;
        }
        m_pURLs.push_back(url);
        position += consumed;
        remaining -= static_cast<U32>(consumed);
        read += static_cast<U32>(consumed);
    }
    if (parsedLength)
        *parsedLength = read;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

} // namespace Vuro
