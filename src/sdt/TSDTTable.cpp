#include "TSDTTable.h"

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kFixedBody = 3; // original_network_id (16), reserved_future_use (8)
} // namespace

TSDTTable::TSDTTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(SDT, MINIMUM_DATA_LENGTH, 0x42, sectionData, dataLength), m_iOriginalNetworkID(0)
{
}

// The services in key order (the map member is cleared after this body),
// then the base frees the section copy their descriptors point into.
TSDTTable::~TSDTTable() = default;

TSDTTable* TSDTTable::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, BOOL checkCRC32,
                            U16* errorCode, TSDTTable* previous)
{
    return parseTable<TSDTTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

void TSDTTable::addServiceDescription(TServiceDescription* item)
{
    if (item)
        m_pItems.add(item->getServiceID(), item);
}

std::list<U16> TSDTTable::getServiceIDs() const
{
    std::list<U16> ids;
    for (const auto& entry : m_pItems.items())
        ids.push_back(entry.second->getServiceID());
    return ids;
}

TISDBTTable::BodyResult TSDTTable::parseBody(U8* /*sectionData*/, U32 dataLength, U16 bodyLength,
                                             BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = m_pData + dataLength;
    U8* position = m_pData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    // A short section_length leaves these bytes past the data.
    if (!requireBytes(position, limit, kFixedBody, errorCode))
        return BODY_FAILED;
    m_iOriginalNetworkID = readU16(position);
    position += kFixedBody;
    // Bytes from here up to the CRC_32, 16-bit: a section_length below 12
    // wraps it.
    U16 sectionLength = static_cast<U16>(bodyLength - kFixedBody);

    // The service loop has no length field: it runs until the 16-bit count is
    // exactly zero. A wrapped count walks on until a service would read past
    // the end of the buffer and fails there.
    U32 itemLength = 0;
    while (sectionLength != 0) {
        TServiceDescription* service =
            TServiceDescription::parse(position, sectionLength, TRUE, &itemLength, errorCode, limit);
        if (!service) {
            VURO_LOGW("%s: TSDTTable::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_ITEM);
            return BODY_FAILED;
        }
        // Two services with one service_id: the later wins and the earlier,
        // which nothing else refers to, is freed.
        m_pItems.store(service->getServiceID(), service);
        // A service whose last (skipped) descriptor claims bytes past the
        // buffer stops the walk at its end, where the next service fails.
        stepWithin(position, limit, itemLength);
        sectionLength = static_cast<U16>(sectionLength - itemLength);
    }
    return BODY_PARSED;
}

} // namespace Vuro
