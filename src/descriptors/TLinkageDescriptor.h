#ifndef VURO_TLINKAGE_DESCRIPTOR_H
#define VURO_TLINKAGE_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// linkage_descriptor (0x4A): transport_stream_id, original_network_id,
/// service_id, linkage_type and the private data bytes.
class TLinkageDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x4A;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 7;

    /// linkage_type values.
    static constexpr VURO_U8 SERVICE_INFORMATION = 0x01;
    static constexpr VURO_U8 SERVICE_EPG = 0x02;
    static constexpr VURO_U8 SERVICE_CA_SUBSTITUTION = 0x03;
    static constexpr VURO_U8 SERVICE_TS_NETWORK_OR_BOUQUET = 0x04;
    static constexpr VURO_U8 SERVICE_SUBSTITUTION = 0x05;
    static constexpr VURO_U8 SERVICE_DATA_BROADCAST = 0x06;
    static constexpr VURO_U8 SERVICE_RETRANSMISSION = 0xFE;

    TLinkageDescriptor(U8* data, U32 length);
    virtual ~TLinkageDescriptor();

    /// *parsedLength receives the body length.
    static TLinkageDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TLinkageDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                     const U8* limit);

    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getServiceID() const { return m_iServiceID; }
    U8 getLinkageType() const { return m_iLinkageType; }
    U8 getPrivateDataSize() const { return m_iPrivateDataSize; }
    /// Owned by the descriptor; null when there is no private data.
    U8* getPrivateData() const { return m_pPrivateData; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iServiceID;
    VURO_U8 m_iLinkageType;
    VURO_U8 m_iPrivateDataSize;
    VURO_U8* m_pPrivateData;
};

} // namespace Vuro

#endif
