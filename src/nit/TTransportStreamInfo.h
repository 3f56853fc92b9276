#ifndef VURO_TTRANSPORT_STREAM_INFO_H
#define VURO_TTRANSPORT_STREAM_INFO_H

#include <list>

#include "../TISDBTParseArena.h"
#include "../descriptors/TEmergencyInformationDescriptor.h"
#include "../descriptors/TLinkageDescriptor.h"
#include "../descriptors/TNetworkNameDescriptor.h"
#include "../descriptors/TPartialReceptionDescriptor.h"
#include "../descriptors/TServiceListDescriptor.h"
#include "../descriptors/TSystemManagementDescriptor.h"
#include "../descriptors/TTSInformationDescriptor.h"
#include "../descriptors/TTerrestrialDeliverySystemDescriptor.h"

namespace Vuro {

struct TNetworkDescriptorSlots;

/// One transport stream of a network information section:
/// transport_stream_id (16), original_network_id (16), reserved (4),
/// transport_descriptors_length (12), descriptors. One descriptor per kind.
class TTransportStreamInfo : public TISDBTArenaObject {
    friend struct TNetworkDescriptorSlots;

public:
    TTransportStreamInfo();
    virtual ~TTransportStreamInfo();

    TTransportStreamInfo(const TTransportStreamInfo&) = delete;
    TTransportStreamInfo& operator=(const TTransportStreamInfo&) = delete;

    /// dataLength is what remains of the section, not of the loop. Descriptors
    /// are always parsed (parseDescriptors has no effect); zero-length ones,
    /// stuffing and unknown tags are skipped without a log line. On success
    /// *itemLength receives the bytes consumed.
    static TTransportStreamInfo* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                       U16* errorCode);
    /// Same, reading nothing at or beyond limit (the end of the section buffer).
    static TTransportStreamInfo* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                       U16* errorCode, const U8* limit);

    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }

    /// The descriptor kept for tag 0x40, 0xFE, 0x41, 0x4A, 0xFA, 0xFC, 0xFB or
    /// 0xCD; null for any other tag or an empty slot.
    TISDBTDescriptor* getDescriptor(U8 descriptorTag) const;
    /// Tags of the descriptors kept, in that order.
    std::list<U8> getDescriptorTags() const;

    TNetworkNameDescriptor* getNetworkNameDescriptor() const { return m_pNetworkNameDesc; }
    TSystemManagementDescriptor* getSystemManagementDescriptor() const { return m_pSystemMngDesc; }
    TServiceListDescriptor* getServiceListDescriptor() const { return m_pServiceListDesc; }
    TLinkageDescriptor* getLinkageDescriptor() const { return m_pLinkageDesc; }
    TTerrestrialDeliverySystemDescriptor* getTerrestrialDeliverySystemDescriptor() const { return m_pTerDelSysDesc; }
    TEmergencyInformationDescriptor* getEmergencyInformationDescriptor() const { return m_pEmergencyInfoDesc; }
    TPartialReceptionDescriptor* getPartialReceptionDescriptor() const { return m_pPartialRecepDesc; }
    TTSInformationDescriptor* getTSInformationDescriptor() const { return m_pTSInfoDesc; }

private:
    static TTransportStreamInfo* rejectLength(TTransportStreamInfo* entry, U32 length, U32 available,
                                              U16* errorCode);

    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iOriginalNetworkID;
    TNetworkNameDescriptor* m_pNetworkNameDesc;
    TSystemManagementDescriptor* m_pSystemMngDesc;
    TServiceListDescriptor* m_pServiceListDesc;
    TLinkageDescriptor* m_pLinkageDesc;
    TTerrestrialDeliverySystemDescriptor* m_pTerDelSysDesc;
    TEmergencyInformationDescriptor* m_pEmergencyInfoDesc;
    TPartialReceptionDescriptor* m_pPartialRecepDesc;
    TTSInformationDescriptor* m_pTSInfoDesc;
};

} // namespace Vuro

#endif
