#ifndef VURO_TPAT_TABLE_H
#define VURO_TPAT_TABLE_H

#include <list>

#include "../TISDBTItemMap.h"
#include "../TISDBTVersionedTable.h"
#include "TProgramAssociation.h"

namespace Vuro {

/// program_association_section (PID 0x0000, table_id 0x00): program_number ->
/// program map PID, plus the network PID announced by program_number 0.
class TPATTable : public TISDBTVersionedTable {
    friend class TISDBTTable;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 10;

    TPATTable(U8* sectionData, U32 dataLength);
    virtual ~TPATTable();

    /// Note the flag order: parseDescriptors (no effect, the section has no
    /// descriptors), then checkCRC32 (never verified). The body is read from
    /// the caller's sectionData.
    static TPATTable* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TPATTable* previous);

    U16 getTransportStreamID() const { return m_iGenericDataField; }
    /// 0 when the section carries no program_number 0 entry.
    U16 getNetworkPid() const { return m_iNetworkPid; }

    /// Programs, program_number 0 not among them.
    U32 size() const { return m_pItems.size(); }
    /// Stores under the item's program_number; an item already there is
    /// displaced and not deleted. A null item is ignored.
    void add(TProgramAssociation* item);
    TProgramAssociation* get(U16 programNumber) const { return m_pItems.get(programNumber); }
    std::list<U16> getProgramNumbers() const { return m_pItems.keys(); }
    BOOL remove(U16 programNumber) { return m_pItems.remove(programNumber); }

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);

    VURO_U16 m_iNetworkPid;
    TISDBTItemMap<U16, TProgramAssociation> m_pItems;
};

} // namespace Vuro

#endif
