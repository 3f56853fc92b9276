#include "TEITTable.h"

#include <VuroPal.h>

#include <mutex>

#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

// The two handles every event table shares: each constructor replaces both,
// each destructor destroys whatever they hold at that time.
VUROMutex eit_mutex = nullptr;
VUROMutex eit_mutex2 = nullptr;

// The library's own serialisation of everything that touches the shared
// handles (parse, construction, destruction). Taken before any platform call,
// so the platform layer still sees each table's calls as one uninterrupted
// sequence; recursive because a refused parse deletes its table while held.
std::recursive_mutex& handleLock()
{
    static std::recursive_mutex lock;
    return lock;
}

const U32 kHeaderLength = TEITTable::MINIMUM_DATA_LENGTH;
// Fixed part of an event after its descriptors: the parse reports only the
// descriptors' size.
const U32 kEventTail = 4;
const U32 kEventHead = 8;
const long long kMinimumRemaining = 5; // anything shorter is the CRC_32

} // namespace

TEITTable::TEITTable(U8* sectionData, U32 dataLength)
    : TISDBTTable(HEIT, MINIMUM_DATA_LENGTH, 0x4E, sectionData, dataLength), version(0), service_id(0),
      transport_stream_id(0), original_network_id(0), tableId(0), sectionNumber(0), lastSectionNumber(0),
      segmentLastSectionNumber(0), lastTableId(0), m_pServiceIds(nullptr)
{
    {
        std::lock_guard<std::recursive_mutex> serialise(handleLock());
        // Whatever the shared variables held is overwritten, not destroyed.
        eit_mutex = VUROMutex_create(0);
        eit_mutex2 = VUROMutex_create(0);
    }
    m_pServiceIds = new std::list<U16>();
}

TEITTable::~TEITTable()
{
    events.clear();
    delete m_pServiceIds;
    m_pServiceIds = nullptr;
    std::lock_guard<std::recursive_mutex> serialise(handleLock());
    VUROMutex_destroy(&eit_mutex);
    VUROMutex_destroy(&eit_mutex2);
}

TEITTable* TEITTable::parse(U8* sectionData, U32 dataLength, BOOL /*checkCRC32*/, BOOL /*parseDescriptors*/,
                            U16* errorCode, TEITTable* /*previous*/)
{
    std::lock_guard<std::recursive_mutex> serialise(handleLock());
    // The handle locked is the one the second variable holds now; the
    // constructor replaces it, so the unlock below goes to the new handle and
    // the locked one is left as it is. The platform layer has always seen
    // this sequence and it is kept.
    VUROMutex_lock(eit_mutex2);
    TEITTable* table = new TEITTable(sectionData, dataLength);
    if (!table->parseEvents(errorCode)) {
        ISDBTUtils::setErrorCode(errorCode, ERROR_INVALID_DESCRIPTOR_LENGTH);
        delete table;
        VUROMutex_unlock(eit_mutex2);
        return nullptr;
    }
    ISDBTUtils::setErrorCode(errorCode, ERROR_OK);
    VUROMutex_unlock(eit_mutex2);
    return table;
}

BOOL TEITTable::parseEvents(U16* errorCode)
{
    // The header sits at fixed positions and is not checked; a section too
    // short to hold it is refused before any read.
    if (!m_pData || m_iDataLength < kHeaderLength)
        return FALSE;
    const U8* header = m_pData;
    tableId = header[0];
    // section_length (bytes 1-2) plays no part: the events run to the end of
    // the data handed in.
    service_id = readU16(header + 3);
    version = static_cast<U16>((header[5] & 0x3E) >> 1);
    sectionNumber = header[6];
    lastSectionNumber = header[7];
    transport_stream_id = readU16(header + 8);
    original_network_id = readU16(header + 10);
    segmentLastSectionNumber = header[12];
    lastTableId = header[13];

    // Signed count of the bytes after the header, the CRC_32 included.
    // position + remaining is always the end of the data.
    long long remaining = static_cast<long long>(m_iDataLength) - kHeaderLength;
    U8* position = m_pData + kHeaderLength;
    while (remaining >= kMinimumRemaining) {
        U32 consumed = 0;
        TEventItemDescriptor* event =
            TEventItemDescriptor::parse(position, static_cast<U32>(remaining), &consumed, errorCode);
        if (!event)
            return FALSE;
        event->setTableId(tableId);
        event->setSectionNumber(sectionNumber);
        // A repeated event_id: the later event wins and the earlier is freed.
        events.store(event->getEventId(), event);
        rebuildEventIds();
        // The step is the descriptors + 4, then + 8 more unless exactly 8
        // bytes would be left. An event ending exactly at the end of the data
        // (no CRC_32 after it) therefore advances by descriptors + 4 only, the
        // next round reads 8 bytes from inside it and the section is refused.
        // Receivers have always stepped so; kept.
        consumed += kEventTail;
        if (remaining - consumed != kEventHead)
            consumed += kEventHead;
        remaining -= consumed;
        if (remaining < kMinimumRemaining)
            break;
        position += consumed;
    }
    return TRUE;
}

void TEITTable::addItem(TEventItemDescriptor* item)
{
    if (!item)
        return;
    events.add(item->getEventId(), item);
    rebuildEventIds();
}

void TEITTable::rebuildEventIds()
{
    delete m_pServiceIds;
    m_pServiceIds = new std::list<U16>(events.keys());
}

} // namespace Vuro
