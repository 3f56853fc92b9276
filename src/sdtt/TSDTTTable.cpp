#include "TSDTTTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
// transport_stream_id, original_network_id, service_id, num_of_contents
const U32 kFixedBody = 7;
} // namespace

TSDTTTable::TSDTTTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(SDTT, MINIMUM_DATA_LENGTH, 0xC3, sectionData, dataLength), m_iTransportStreamID(0),
      m_iOriginalNetworkID(0), m_iServiceID(0)
{
}

TSDTTTable::~TSDTTTable()
{
    m_pItems.clear();
}

TSDTTTable* TSDTTTable::parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                              U16* errorCode, TSDTTTable* previous)
{
    return parseTable<TSDTTTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

TISDBTTable::BodyResult TSDTTTable::parseBody(U8* sectionData, U32 dataLength, U16 bodyLength,
                                              BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = sectionData + dataLength;
    U8* position = sectionData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    // A short section_length leaves these bytes past the data.
    if (!requireBytes(position, limit, kFixedBody, errorCode))
        return BODY_FAILED;
    m_iTransportStreamID = readU16(position);
    m_iOriginalNetworkID = readU16(position + 2);
    m_iServiceID = readU16(position + 4);
    const U8 contentCount = position[6];
    position += kFixedBody;
    // Bytes from here up to the CRC_32, 16-bit: a section_length below 16
    // wraps it, and the contents then stop at the end of the data.
    U16 sectionLength = static_cast<U16>(bodyLength - kFixedBody);

    for (U8 i = 0; i < contentCount; ++i) {
        U32 itemLength = 0;
        TDownloadContent* content =
            TDownloadContent::parse(position, sectionLength, TRUE, &itemLength, errorCode, limit);
        if (!content) {
            VURO_LOGW("%s: TSDTTTable::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_ITEM);
            return BODY_FAILED;
        }
        m_pItems.add(content);
        stepWithin(position, limit, itemLength);
        sectionLength = static_cast<U16>(sectionLength - itemLength);
    }
    return BODY_PARSED;
}

} // namespace Vuro
