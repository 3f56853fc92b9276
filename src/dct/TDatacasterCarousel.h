#ifndef VURO_TDATACASTER_CAROUSEL_H
#define VURO_TDATACASTER_CAROUSEL_H

#include <string>

#include "../utils/VuroISDBTUtils.h"

namespace Vuro {

/// The datacaster carousel table (DCT, table_id 0x99) that would hold the
/// entries; the library offers the entry only and never defines the table.
class TDCTTable;

/// One entry of a datacaster carousel table: reserved (3) PID (13) version (8)
/// carousel_id (32) component_tag (8) application_name_length (8)
/// application_name. Callers walk the table body themselves and hand each
/// entry to parse.
class TDatacasterCarousel {
public:
    TDatacasterCarousel();
    virtual ~TDatacasterCarousel();

    TDatacasterCarousel(const TDatacasterCarousel&) = delete;
    TDatacasterCarousel& operator=(const TDatacasterCarousel&) = delete;

    /// parseDescriptors has no effect. On success *itemLength receives 8 plus
    /// the bytes of the name (its length byte included).
    static TDatacasterCarousel* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                      U16* errorCode);
    /// Same, reading nothing at or beyond limit (the end of the table's
    /// section buffer).
    static TDatacasterCarousel* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                      U16* errorCode, const U8* limit);

    /// Records the table the entry belongs to; the entry never deletes it.
    void setParentDCTTable(TDCTTable* table) { m_pParentDCTTable = table; }

    U16 getPID() const { return m_iPID; }
    U8 getVersion() const { return m_iVersion; }
    VURO_U32 getCarouselID() const { return m_iCarouselID; }
    VURO_U8 getComponentTag() const { return m_iComponentTag; }
    std::string getApplicationName() const { return m_sApplicationName; }

private:
    static TDatacasterCarousel* rejectLength(U32 available, U16* errorCode);

    TDCTTable* m_pParentDCTTable;
    VURO_U16 m_iPID;
    VURO_U8 m_iVersion;
    VURO_U32 m_iCarouselID;
    VURO_U8 m_iComponentTag;
    std::string m_sApplicationName;
};

} // namespace Vuro

#endif
