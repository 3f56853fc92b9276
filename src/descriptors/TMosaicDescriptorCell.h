#ifndef VURO_TMOSAIC_DESCRIPTOR_CELL_H
#define VURO_TMOSAIC_DESCRIPTOR_CELL_H

#include "../TISDBTParseArena.h"
#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// One logical cell of a mosaic descriptor: logical_cell_id (6), reserved (7),
/// logical_cell_presentation_info (3), elementary_cell_field_length (8), that
/// many elementary_cell_ids (2 reserved + 6 bits each), cell_linkage_info (8),
/// then by linkage: bouquet_id (16); original_network_id, transport_stream_id,
/// service_id (16 each); or those three and event_id (16).
class TMosaicDescriptorCell : public TISDBTArenaObject {
public:
    /// cell_linkage_info values.
    static constexpr VURO_U8 LINKAGE_TYPE_UNDEFINED = 0;
    static constexpr VURO_U8 LINKAGE_TYPE_BOUQUET_RELATED = 1;
    static constexpr VURO_U8 LINKAGE_TYPE_SERVICE_RELATED = 2;
    static constexpr VURO_U8 LINKAGE_TYPE_OTHER_MOSAIC_RELATED = 3;
    static constexpr VURO_U8 LINKAGE_TYPE_EVENT_RELATED = 4;
    /// logical_cell_presentation_info values.
    static constexpr VURO_U8 PRESENTATION_TYPE_UNDEFINED = 0;
    static constexpr VURO_U8 PRESENTATION_TYPE_VIDEO = 1;
    static constexpr VURO_U8 PRESENTATION_TYPE_STILL_PICTURE = 2;
    static constexpr VURO_U8 PRESENTATION_TYPE_GRAPHICS_OR_TEXT = 3;

    TMosaicDescriptorCell();
    virtual ~TMosaicDescriptorCell();

    /// Needs 5 bytes, the elementary cell ids and what the linkage carries; a
    /// linkage other than 1 to 4 is refused. *itemLength is 3 + field length
    /// + 1 + 2, 6 or 8.
    static TMosaicDescriptorCell* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);
    static TMosaicDescriptorCell* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode,
                                        const U8* limit);

    U8 getLogicalCellID() const { return m_iLogicalCellID; }
    U8 getLogicalCellPresentationInfo() const { return m_iLogicalCellPresentationInfo; }
    U8 getElementaryCellFieldLength() const { return m_iElementaryCellFieldLength; }
    /// elementary_cell_field_length ids (6 bits each), or null when none.
    U8* getElementaryCellIDs() const { return m_pElementaryCellIDs; }
    U8 getCellLinkageInfo() const { return m_iCellLinkageInfo; }
    U16 getBouquetID() const { return m_iBouquetID; }
    U16 getOriginalNetworkID() const { return m_iOriginalNetworkID; }
    U16 getTransportStreamID() const { return m_iTransportStreamID; }
    U16 getServiceID() const { return m_iServiceID; }
    U16 getEventID() const { return m_iEventID; }

private:
    TMosaicDescriptorCell(const TMosaicDescriptorCell&) = delete;
    TMosaicDescriptorCell& operator=(const TMosaicDescriptorCell&) = delete;

    VURO_U8 m_iLogicalCellID;
    VURO_U8 m_iLogicalCellPresentationInfo;
    VURO_U8 m_iElementaryCellFieldLength;
    VURO_U8* m_pElementaryCellIDs;
    VURO_U8 m_iCellLinkageInfo;
    VURO_U16 m_iBouquetID;
    VURO_U16 m_iOriginalNetworkID;
    VURO_U16 m_iTransportStreamID;
    VURO_U16 m_iServiceID;
    VURO_U16 m_iEventID;
};

} // namespace Vuro

#endif
