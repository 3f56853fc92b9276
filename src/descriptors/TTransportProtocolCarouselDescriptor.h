#ifndef VURO_TTRANSPORT_PROTOCOL_CAROUSEL_DESCRIPTOR_H
#define VURO_TTRANSPORT_PROTOCOL_CAROUSEL_DESCRIPTOR_H

#include "TTransportProtocolDescriptor.h"

namespace Vuro {

/// The carousel selector shared by the object carousel, data carousel and
/// profile-C variants: remote_connection (1), reserved (7), then when remote
/// original_network_id (16), transport_stream_id (16), service_id (16), and
/// component_tag (8). The variants differ in the type and protocol id they
/// report and in the class name of their length line.
class TTransportProtocolCarouselDescriptor : public TTransportProtocolDescriptor {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_SPECIFIC_LENGTH = 5;

    virtual ~TTransportProtocolCarouselDescriptor();

    BOOL isRemoteConnection() const { return m_bRemoteConnection; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getServiceID() const { return m_iServiceID; }
    U8 getComponentTag() const { return m_iComponentTag; }

protected:
    TTransportProtocolCarouselDescriptor(Type type, U16 protocolId, U8* data, U32 length);
    /// A copy without raw bytes: the selector fields of source when it carries
    /// a carousel selector, zero otherwise (an interactive-channel object
    /// copied as a data carousel). The label is the caller's to copy.
    TTransportProtocolCarouselDescriptor(Type type, U16 protocolId, const TTransportProtocolDescriptor* source);

    /// The selector read, with lengthLine for a selector that is too short:
    /// `"%s: <class>::parse: Item length not valid: %u. Aborting!"`.
    BOOL parseSelector(const char* lengthLine, U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);

    VURO_BOOL m_bRemoteConnection;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iServiceID;
    VURO_U8 m_iComponentTag;
};

} // namespace Vuro

#endif
