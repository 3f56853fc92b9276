#ifndef VURO_TSDT_TABLE_H
#define VURO_TSDT_TABLE_H

#include <list>

#include "../TISDBTItemMap.h"
#include "../TISDBTVersionedTable.h"
#include "TServiceDescription.h"

namespace Vuro {

/// service_description_section of the actual transport stream (PID 0x0011,
/// table_id 0x42; other-stream sections, 0x46, are refused):
/// transport_stream_id, original_network_id, then the services keyed by
/// service_id. The section level carries no descriptors.
class TSDTTable : public TISDBTVersionedTable {
    friend class TISDBTTable;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 3;

    TSDTTable(U8* sectionData, U32 dataLength);
    virtual ~TSDTTable();

    /// Note the flag order: parseDescriptors (no effect: descriptors are always
    /// parsed), then checkCRC32 (never verified). The body is read from the
    /// table's own copy, so its descriptors live as long as the table.
    static TSDTTable* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TSDTTable* previous);

    U16 getTransportStreamID() const { return m_iGenericDataField; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }

    /// Number of services.
    U32 size() const { return m_pItems.size(); }
    /// Stores under the item's service_id and takes ownership; a service
    /// already there is displaced and not deleted. A null item is ignored.
    void addServiceDescription(TServiceDescription* item);
    TServiceDescription* getServiceDescription(U16 serviceID) const { return m_pItems.get(serviceID); }
    /// Ascending.
    std::list<U16> getServiceIDs() const;
    BOOL removeServiceDescription(U16 serviceID) { return m_pItems.remove(serviceID); }

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);

    VURO_U16 m_iOriginalNetworkID;
    TISDBTItemMap<U16, TServiceDescription> m_pItems;
};

} // namespace Vuro

#endif
