#ifndef VURO_TDSMCC_SECTION_TABLE_H
#define VURO_TDSMCC_SECTION_TABLE_H

#include <list>

#include "../TISDBTVersionedTable.h"
#include "../descriptors/TNPTEndpointDescriptor.h"
#include "../descriptors/TNPTReferenceDescriptor.h"
#include "../descriptors/TStreamEventDescriptor.h"
#include "../descriptors/TStreamModeDescriptor.h"

namespace Vuro {

struct TDSMCCStreamDescriptorSlots;

/// DSM-CC section carrying stream descriptors (table_id 0x3D, long header):
/// the table_id_extension holds data_event_id (4) and event_msg_group_id (12);
/// the body is a loop of stream descriptors up to the CRC_32.
class TDSMCCSectionTable : public TISDBTVersionedTable {
    friend class TISDBTTable;
    friend struct TDSMCCStreamDescriptorSlots;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 4;

    TDSMCCSectionTable(U8* sectionData, U32 dataLength);
    virtual ~TDSMCCSectionTable();

    /// Flag order: checkCRC32 (never verified), then parseDescriptors (not
    /// consulted: the descriptors are always parsed). The descriptors are read
    /// from, and borrow, the caller's sectionData, which must outlive the
    /// table. A stream event descriptor with the older tag 26 has its tag byte
    /// rewritten to 4 in the caller's buffer before it is parsed.
    static TDSMCCSectionTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                                     U16* errorCode, TDSMCCSectionTable* previous);

    U8 getDataEventID() const { return m_iDataEventID; }
    U16 getEventMsgGroupID() const { return m_iEventMsgGroupID; }
    TNPTReferenceDescriptor* getNPTReferenceDescriptor() const { return m_pNPTReferenceDesc; }
    TNPTEndpointDescriptor* getNPTEndpointDescriptor() const { return m_pNPTEndpointDesc; }
    TStreamModeDescriptor* getStreamModeDescriptor() const { return m_pStreamModeDesc; }
    TStreamEventDescriptor* getStreamEventDescriptor() const { return m_pStreamEventDesc; }

    /// Tags 1 to 4 (never 26, which is stored as 4); null for any other tag.
    TISDBTDescriptor* getDescriptor(U8 tag) const override;
    /// The tags held, in the order 1, 2, 3, 4.
    std::list<U8> getDescriptorTags() const override;

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);
    static BodyResult rejectLength(U32 tag, U32 available, U16* errorCode);

    VURO_U8 m_iDataEventID;
    VURO_U16 m_iEventMsgGroupID;
    TNPTReferenceDescriptor* m_pNPTReferenceDesc;
    TNPTEndpointDescriptor* m_pNPTEndpointDesc;
    TStreamModeDescriptor* m_pStreamModeDesc;
    TStreamEventDescriptor* m_pStreamEventDesc;
};

} // namespace Vuro

#endif
