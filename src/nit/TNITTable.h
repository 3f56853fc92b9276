#ifndef VURO_TNIT_TABLE_H
#define VURO_TNIT_TABLE_H

#include <list>

#include "../TISDBTItemMap.h"
#include "../TISDBTVersionedTable.h"
#include "TTransportStreamInfo.h"

namespace Vuro {

/// network_information_section of the actual network (PID 0x0010, table_id
/// 0x40; other-network sections, 0x41, are refused): network_id, the network
/// descriptors kept one per kind, and the transport streams keyed by
/// transport_stream_id.
class TNITTable : public TISDBTVersionedTable {
    friend class TISDBTTable;
    friend struct TNetworkDescriptorSlots;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 4;

    TNITTable(U8* sectionData, U32 dataLength);
    virtual ~TNITTable();

    /// Note the flag order: checkCRC32 (never verified), then parseDescriptors
    /// (no effect: descriptors are always parsed). The body is read from the
    /// table's own copy, so its descriptors live as long as the table.
    static TNITTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                            U16* errorCode, TNITTable* previous);

    U16 getNetworkID() const { return m_iGenericDataField; }

    /// The network descriptor kept for tag 0x40, 0xFE, 0x41, 0x4A, 0xFA, 0xFC,
    /// 0xFB or 0xCD; null for any other tag or an empty slot.
    TISDBTDescriptor* getDescriptor(U8 descriptorTag) const override;
    /// Tags of the network descriptors kept, in that order.
    std::list<U8> getDescriptorTags() const override;

    TNetworkNameDescriptor* getNetworkNameDescriptor() const { return m_pNetworkNameDesc; }
    TSystemManagementDescriptor* getSystemManagementDescriptor() const { return m_pSystemMngDesc; }
    TServiceListDescriptor* getServiceListDescriptor() const { return m_pServiceListDesc; }
    TLinkageDescriptor* getLinkageDescriptor() const { return m_pLinkageDesc; }
    TTerrestrialDeliverySystemDescriptor* getTerrestrialDeliverySystemDescriptor() const { return m_pTerDelSysDesc; }
    TEmergencyInformationDescriptor* getEmergencyInformationDescriptor() const { return m_pEmergencyInfoDesc; }
    TPartialReceptionDescriptor* getPartialReceptionDescriptor() const { return m_pPartialRecepDesc; }
    TTSInformationDescriptor* getTSInformationDescriptor() const { return m_pTSInfoDesc; }

    /// Number of transport streams (entries, not bytes).
    U32 getTransportStreamLoopSize() const { return m_pItems.size(); }
    /// Stores under the item's transport_stream_id and takes ownership; an
    /// entry already there is displaced and not deleted. A null item is ignored.
    void addTransportStreamInfo(TTransportStreamInfo* item);
    TTransportStreamInfo* getTransportStreamInfo(U16 transportStreamID) const
    {
        return m_pItems.get(transportStreamID);
    }
    /// Ascending.
    std::list<U16> getTransportStreamIDs() const;
    BOOL removeTransportStreamInfo(U16 transportStreamID) { return m_pItems.remove(transportStreamID); }

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);
    // Logs the table's length line with (length, available), stores
    // ERROR_INVALID_DATA_LENGTH and returns BODY_FAILED.
    static BodyResult rejectLength(U32 length, U32 available, U16* errorCode);
    // Reads a 12-bit loop length at position (which must lie before limit) and
    // steps past it, taking its 2 bytes off sectionLength (16-bit); a loop
    // longer than the rest of the section fails with the length line.
    static BOOL readLoopLength(U8*& position, const U8* limit, U16& sectionLength, U16& loopLength,
                               U16* errorCode);

    TNetworkNameDescriptor* m_pNetworkNameDesc;
    TSystemManagementDescriptor* m_pSystemMngDesc;
    TServiceListDescriptor* m_pServiceListDesc;
    TLinkageDescriptor* m_pLinkageDesc;
    TTerrestrialDeliverySystemDescriptor* m_pTerDelSysDesc;
    TEmergencyInformationDescriptor* m_pEmergencyInfoDesc;
    TPartialReceptionDescriptor* m_pPartialRecepDesc;
    TTSInformationDescriptor* m_pTSInfoDesc;
    TISDBTItemMap<U16, TTransportStreamInfo> m_pItems;
};

} // namespace Vuro

#endif
