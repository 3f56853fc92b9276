#ifndef VURO_TSDTT_TABLE_H
#define VURO_TSDTT_TABLE_H

#include "../TISDBTItemList.h"
#include "../TISDBTVersionedTable.h"
#include "TDownloadContent.h"

namespace Vuro {

/// software download trigger section (PIDs 0x0023 / 0x0028, table_id 0xC3):
/// table_id_extension = maker_id (8) model_id (8); transport_stream_id (16)
/// original_network_id (16) service_id (16) num_of_contents (8), then the
/// contents in section order. The section level carries no descriptors.
class TSDTTTable : public TISDBTVersionedTable {
    friend class TISDBTTable;

public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 4;

    TSDTTTable(U8* sectionData, U32 dataLength);
    TSDTTTable(const TSDTTTable&) = delete;
    TSDTTTable& operator=(const TSDTTTable&) = delete;
    /// Deletes every content.
    virtual ~TSDTTTable();

    /// Note the flag order: checkCRC32 (never verified), then parseDescriptors
    /// (no effect). The body is read from the caller's sectionData: the
    /// download content descriptors keep pointing into it (their copied
    /// private data, modules and texts do not), so that buffer must outlive
    /// the table for getData() of those descriptors. Contents are not linked
    /// back to the table.
    static TSDTTTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                             U16* errorCode, TSDTTTable* previous);

    U16 getTableIDExtension() const { return m_iGenericDataField; }
    U8 getMakerID() const { return static_cast<U8>(m_iGenericDataField >> 8); }
    U8 getModelID() const { return static_cast<U8>(m_iGenericDataField & 0xFF); }
    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getServiceID() const { return m_iServiceID; }

    /// Contents by 0-based position in section order; null / FALSE past the
    /// end.
    U32 getDownloadContentSize() const { return m_pItems.size(); }
    TDownloadContent* getDownloadContent(U8 index) const { return m_pItems.get(index); }
    /// Appends; the table takes ownership.
    void addDownloadContent(TDownloadContent* content) { m_pItems.add(content); }
    /// Unlinks and deletes the content.
    BOOL removeDownloadContent(U8 index) { return m_pItems.remove(index); }

private:
    BodyResult parseBody(U8* sectionData, U32 dataLength, U16 bodyLength, BOOL parseDescriptors, U16* errorCode);

    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iServiceID;
    TISDBTItemList<TDownloadContent> m_pItems;
};

} // namespace Vuro

#endif
