#include "TISDBTVersionedTable.h"

#include "utils/VuroParseSupport.h"

namespace Vuro {

TISDBTVersionedTable::TISDBTVersionedTable(Type type, U32 minimumDataLength, U16 expectedTableId, U8* data,
                                           U32 length)
    : TISDBTTable(type, minimumDataLength, expectedTableId, data, length),
      m_iGenericDataField(0),
      m_iVersion(0),
      m_bCurrentIndicator(FALSE),
      m_iSectionNum(0),
      m_iLastSectionNum(0)
{
}

TISDBTVersionedTable::~TISDBTVersionedTable() = default;

BOOL TISDBTVersionedTable::parseCommonHeader(U8* sectionData, U32 dataLength, BOOL checkCRC32, U16* errorCode,
                                             U16* sectionLength, TISDBTTable* previous)
{
    if (!TISDBTTable::parseCommonHeader(sectionData, dataLength, checkCRC32, errorCode, sectionLength, previous))
        return FALSE;
    if (previous && previous->getType() != m_eMyType) {
        ISDBTUtils::setErrorCode(errorCode, ERROR_INCOMPATIBLE_TABLE_TYPE);
        return FALSE;
    }
    // Tables with a minimum below 8 bytes may be handed fewer bytes than the
    // long header holds: stop there rather than read past the data.
    if (!requireBytes(sectionData, sectionData + dataLength, COMMON_HEADER_LENGTH, errorCode))
        return FALSE;

    m_iGenericDataField = readU16(sectionData + 3);
    m_iVersion = static_cast<U8>((sectionData[5] & 0x3E) >> 1);
    m_bCurrentIndicator = sectionData[5] & 0x01;
    m_iSectionNum = sectionData[6];
    m_iLastSectionNum = sectionData[7];
    if (sectionLength)
        *sectionLength = static_cast<U16>(*sectionLength - 5);

    if (!previous)
        return TRUE; // any section number and current_next_indicator
    if (m_iSectionNum != 0) {
        VURO_LOGW("%s: TISDBTVersionedTable::parse: Multi-section parsing not supported. TODO!", VURO_LOG_ORIGIN);
        return FALSE; // the caller's code stays as it was
    }
    // Only the type and the version of previous are compared; the
    // current_next_indicator is not.
    const TISDBTVersionedTable* earlier = dynamic_cast<const TISDBTVersionedTable*>(previous);
    if (earlier && earlier->m_iVersion == m_iVersion) {
        ISDBTUtils::setErrorCode(errorCode, ERROR_TABLE_NOT_UPDATED);
        return FALSE;
    }
    return TRUE;
}

} // namespace Vuro
