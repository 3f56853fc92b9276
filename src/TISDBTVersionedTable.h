#ifndef VURO_TISDBT_VERSIONED_TABLE_H
#define VURO_TISDBT_VERSIONED_TABLE_H

#include "TISDBTTable.h"

namespace Vuro {

/// Table with the long section header: table_id_extension, version_number,
/// current_next_indicator, section_number and last_section_number, and the
/// test whether the section is newer than a previously parsed table.
class TISDBTVersionedTable : public TISDBTTable {
public:
    /// Bytes up to and including last_section_number.
    static constexpr VURO_U32 COMMON_HEADER_LENGTH = 8;

    TISDBTVersionedTable(Type type, U32 minimumDataLength, U16 expectedTableId, U8* data, U32 length);
    virtual ~TISDBTVersionedTable();

    /// The short header check, then: previous of another type ->
    /// ERROR_INCOMPATIBLE_TABLE_TYPE; with previous given, a section_number
    /// other than 0 is refused without a code (sections are not assembled);
    /// previous with the same version -> ERROR_TABLE_NOT_UPDATED. On success
    /// *sectionLength counts the bytes from byte 8 up to the CRC_32.
    BOOL parseCommonHeader(U8* sectionData, U32 dataLength, BOOL checkCRC32, U16* errorCode, U16* sectionLength,
                           TISDBTTable* previous) override;

    /// table_id_extension (16): the transport_stream_id of a PAT or SDT, the program_number of a PMT, the
    /// network_id of a NIT, the application type of an AIT, maker_id and model_id of an SDTT.
    U16 getGenericDataField() const { return m_iGenericDataField; }
    /// version_number (5), 0-31.
    U8 getVersion() const { return m_iVersion; }
    /// current_next_indicator: TRUE when the section applies now, FALSE for the next version.
    BOOL getCurrentIndicator() const { return m_bCurrentIndicator; }
    U8 getSectionNumber() const { return m_iSectionNum; }
    U8 getLastSectionNumber() const { return m_iLastSectionNum; }

protected:
    VURO_U16 m_iGenericDataField;
    VURO_U8 m_iVersion;
    VURO_BOOL m_bCurrentIndicator;
    VURO_U8 m_iSectionNum;
    VURO_U8 m_iLastSectionNum;
};

} // namespace Vuro

#endif
