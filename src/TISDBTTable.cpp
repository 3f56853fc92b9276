#include "TISDBTTable.h"

#include "utils/VuroParseSupport.h"

namespace Vuro {

TISDBTTable::TISDBTTable(Type type, U32 minimumDataLength, U16 expectedTableId, U8* data, U32 length)
    : TISDBTDataHolder(data, length, TRUE),
      m_eMyType(type),
      m_iMinimumDataLength(minimumDataLength),
      m_iExpectedTableId(expectedTableId)
{
}

TISDBTTable::~TISDBTTable() = default;

TISDBTDescriptor* TISDBTTable::getDescriptor(U8 /*tag*/) const
{
    return nullptr;
}

std::list<U8> TISDBTTable::getDescriptorTags() const
{
    return std::list<U8>();
}

BOOL TISDBTTable::parseCommonHeader(U8* sectionData, U32 dataLength, BOOL /*checkCRC32*/, U16* errorCode,
                                    U16* sectionLength, TISDBTTable* /*previous*/)
{
    if (!sectionData) {
        VURO_LOGW("%s: TISDBTTable::parse: Invalid data. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA);
        return FALSE;
    }
    if (m_iMinimumDataLength > dataLength) {
        VURO_LOGW("%s: TISDBTTable::parse: Longer data length is required: %u < %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength, m_iMinimumDataLength);
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    }
    // A table whose minimum is below the 3 header bytes must still not read
    // past them: each is checked for just before it is read, so table_id is
    // compared whenever its byte is there.
    const U8* limit = sectionData + dataLength;
    if (!requireBytes(sectionData, limit, 1, errorCode))
        return FALSE;
    if (sectionData[0] != m_iExpectedTableId) {
        VURO_LOGW("%s: TISDBTTable::parse: Unexpected table ID. Got 0x%02X, instead of 0x%02X. Aborting!",
                  VURO_LOG_ORIGIN, sectionData[0], m_iExpectedTableId);
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_TABLE_ID);
        return FALSE;
    }
    if (!requireBytes(sectionData, limit, COMMON_HEADER_LENGTH, errorCode))
        return FALSE;
    const U16 section_length = static_cast<U16>(((sectionData[1] & 0x0F) << 8) | sectionData[2]);
    if (section_length > dataLength - COMMON_HEADER_LENGTH) {
        VURO_LOGW("%s: TISDBTTable::parse: Section length exceeds data length. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_SECTION_LEN_TOO_BIG);
        return FALSE;
    }
    // section_syntax_indicator and the reserved bits are not examined. A
    // section_length below 4 wraps the 16-bit body length; the bodies then stop
    // at the end of the data instead of reading past it.
    if (sectionLength)
        *sectionLength = static_cast<U16>(section_length - CRC_LENGTH);
    return TRUE;
}

void TISDBTTable::setDebug(BOOL /*debug*/, BOOL /*recursive*/)
{
}

BOOL TISDBTTable::refuseLength(const U8* position, const U8* limit, U32 need, U16* errorCode)
{
    VURO_LOGW("%s: TISDBTTable::parse: Longer data length is required: %u < %u. Aborting!", VURO_LOG_ORIGIN,
              bytesLeft(position, limit), need);
    ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
    return FALSE;
}

} // namespace Vuro
