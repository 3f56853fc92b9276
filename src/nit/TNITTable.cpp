#include "TNITTable.h"

#include "../utils/VuroParseSupport.h"
#include "TNetworkDescriptorSlots.h"

namespace Vuro {

namespace {
const U32 kLoopLengthField = 2; // 4 reserved bits + 12-bit loop length
const U32 kDescriptorHeader = TISDBTDescriptor::COMMON_HEADER_LENGTH;
using Slots = TNetworkSlots;
} // namespace

TNITTable::TNITTable(U8* sectionData, U32 dataLength)
    : TISDBTVersionedTable(NIT, MINIMUM_DATA_LENGTH, 0x40, sectionData, dataLength), m_pNetworkNameDesc(nullptr),
      m_pSystemMngDesc(nullptr), m_pServiceListDesc(nullptr), m_pLinkageDesc(nullptr), m_pTerDelSysDesc(nullptr),
      m_pEmergencyInfoDesc(nullptr), m_pPartialRecepDesc(nullptr), m_pTSInfoDesc(nullptr)
{
}

// The descriptors first, then the entries in key order (the map member is
// cleared after this body), then the base frees the section copy they point into.
TNITTable::~TNITTable()
{
    Slots::release(*this);
}

TNITTable* TNITTable::parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                            U16* errorCode, TNITTable* previous)
{
    return parseTable<TNITTable>(sectionData, dataLength, checkCRC32, parseDescriptors, errorCode, previous);
}

TISDBTDescriptor* TNITTable::getDescriptor(U8 descriptorTag) const
{
    return Slots::get(*this, descriptorTag);
}

std::list<U8> TNITTable::getDescriptorTags() const
{
    return Slots::tags(*this);
}

void TNITTable::addTransportStreamInfo(TTransportStreamInfo* item)
{
    if (item)
        m_pItems.add(item->getTransportStreamID(), item);
}

std::list<U16> TNITTable::getTransportStreamIDs() const
{
    std::list<U16> ids;
    for (const auto& entry : m_pItems.items())
        ids.push_back(entry.second->getTransportStreamID());
    return ids;
}

TISDBTTable::BodyResult TNITTable::rejectLength(U32 length, U32 available, U16* errorCode)
{
    VURO_LOGW("%s: TNITTable::parse: Item length not valid: %u > %u. Aborting!", VURO_LOG_ORIGIN, length, available);
    ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DATA_LENGTH);
    return BODY_FAILED;
}

BOOL TNITTable::readLoopLength(U8*& position, const U8* limit, U16& sectionLength, U16& loopLength,
                               U16* errorCode)
{
    if (!fits(position, limit, kLoopLengthField)) {
        rejectLength(kLoopLengthField, bytesLeft(position, limit), errorCode);
        return FALSE;
    }
    loopLength = static_cast<U16>(((position[0] & 0x0F) << 8) | position[1]);
    position += kLoopLengthField;
    sectionLength = static_cast<U16>(sectionLength - kLoopLengthField);
    if (loopLength > sectionLength) {
        rejectLength(loopLength, sectionLength, errorCode);
        return FALSE;
    }
    return TRUE;
}

TISDBTTable::BodyResult TNITTable::parseBody(U8* /*sectionData*/, U32 dataLength, U16 bodyLength,
                                             BOOL /*parseDescriptors*/, U16* errorCode)
{
    const U8* limit = m_pData + dataLength;
    U8* position = m_pData + TISDBTVersionedTable::COMMON_HEADER_LENGTH;
    // bytes from here up to the CRC_32, 16-bit as the header check gives it
    U16 sectionLength = bodyLength;

    // Network descriptor loop.
    U16 descriptorsLength = 0;
    if (!readLoopLength(position, limit, sectionLength, descriptorsLength, errorCode))
        return BODY_FAILED;
    while (descriptorsLength != 0) {
        if (!fits(position, limit, kDescriptorHeader))
            return rejectLength(kDescriptorHeader, bytesLeft(position, limit), errorCode);
        const U8 tag = position[0];
        const U32 length = position[1];
        // Signed on purpose: with fewer than 2 bytes left every descriptor
        // fails here.
        const S32 available = static_cast<S32>(sectionLength) - static_cast<S32>(kDescriptorHeader);
        if (static_cast<S32>(length) > available)
            return rejectLength(length, static_cast<U32>(available), errorCode);
        const U32 total = length + kDescriptorHeader;
        // A known tag goes to its parser whatever its length (an empty one
        // then fails its minimum, and with it the table); it must lie inside
        // the data. Skipping reads nothing, so an unknown one need not.
        switch (Slots::parse(*this, position, total, errorCode, limit)) {
        case Slots::FAILED:
            return BODY_FAILED;
        case Slots::PAST_BUFFER:
            return rejectLength(length, bytesLeft(position, limit) - kDescriptorHeader, errorCode);
        case Slots::UNKNOWN:
            VURO_LOGW("%s: TNITTable::parse: Unknown descriptor: 0x%02X. Ignored!", VURO_LOG_ORIGIN, tag);
            break;
        case Slots::STORED:
        case Slots::STUFFING:
            break;
        }
        // A step past the end of the data stops at the end, where the next
        // header read fails.
        stepWithin(position, limit, total);
        descriptorsLength = static_cast<U16>(descriptorsLength - total);
        sectionLength = static_cast<U16>(sectionLength - total);
    }

    // Transport stream loop.
    U16 streamsLength = 0;
    if (!readLoopLength(position, limit, sectionLength, streamsLength, errorCode))
        return BODY_FAILED;
    // The 16-bit loop count ends the loop only at exactly zero; an entry
    // longer than what is left wraps it and the walk goes on until an entry
    // would pass the end of the buffer.
    U32 itemLength = 0;
    while (streamsLength != 0) {
        TTransportStreamInfo* entry =
            TTransportStreamInfo::parse(position, sectionLength, TRUE, &itemLength, errorCode, limit);
        if (!entry) {
            VURO_LOGW("%s: TNITTable::parse: Invalid item. Aborting!", VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_ITEM);
            return BODY_FAILED;
        }
        // Two entries with one transport_stream_id: the later wins and the
        // earlier, which nothing else refers to, is freed.
        m_pItems.store(entry->getTransportStreamID(), entry);
        position += itemLength;
        streamsLength = static_cast<U16>(streamsLength - itemLength);
        sectionLength = static_cast<U16>(sectionLength - itemLength);
    }
    return BODY_PARSED;
}

} // namespace Vuro
