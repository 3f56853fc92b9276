#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_IP_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_IP_H

#include <list>
#include <string>

#include "TTransportProtocolDescriptor.h"

namespace Vuro {

/// Transport protocol selector of IP multicast (protocol_id 2):
/// remote_connection (1), reserved (7), the three 16-bit ids when remote,
/// alignment_indicator (1), reserved (7), then URLs, each an 8-bit length and
/// that many bytes, to the end of the descriptor.
class TTransportProtocolDescriptorIP : public TTransportProtocolDescriptor {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_SPECIFIC_LENGTH = 5;

    TTransportProtocolDescriptorIP(U8* data, U32 length);
    /// A descriptor built by hand: no raw bytes, label 0, no remote ids, not
    /// aligned, url as its only URL.
    explicit TTransportProtocolDescriptorIP(std::string url);
    /// A copy of every field, the label and the URLs, without raw bytes.
    explicit TTransportProtocolDescriptorIP(TTransportProtocolDescriptorIP* source);
    virtual ~TTransportProtocolDescriptorIP();

    BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) override;

    BOOL isRemoteConnection() const { return m_bRemoteConnection; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getServiceID() const { return m_iServiceID; }
    BOOL isAligned() const { return m_bAlignmentIndicator; }

    U32 getURLCount() const { return static_cast<U32>(m_pURLs.size()); }
    /// The URL at index (a copy); an empty string at or beyond the count.
    std::string getURL(U8 index) const;
    void addURL(std::string url) { m_pURLs.push_back(url); }
    /// FALSE when there is no URL at index.
    BOOL removeURL(U8 index);

private:
    VURO_BOOL m_bRemoteConnection;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iServiceID;
    VURO_BOOL m_bAlignmentIndicator;
    std::list<std::string> m_pURLs;
};

} // namespace Vuro

#endif
