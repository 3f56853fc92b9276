#ifndef VURO_TEIT_TABLE_H
#define VURO_TEIT_TABLE_H

#include <list>

#include "../TISDBTItemMap.h"
#include "../TISDBTTable.h"
#include "TEventItemDescriptor.h"

namespace Vuro {

// event_information_section (present/following 0x4E/0x4F, schedule
// 0x50-0x6F): table_id, section_length, service_id, version_number,
// section_number, last_section_number, transport_stream_id,
// original_network_id, segment_last_section_number, last_table_id, then the
// event loop up to the CRC_32. Events are keyed by event_id.
class TEITTable : public TISDBTTable {
public:
    static constexpr VURO_U32 MINIMUM_DATA_LENGTH = 14;

    // Creates the two shared platform mutex handles (see parse).
    TEITTable(U8* sectionData, U32 dataLength);
    // Deletes the events, then destroys the shared handles, whichever table
    // created them.
    virtual ~TEITTable();

    TEITTable(const TEITTable&) = delete;
    TEITTable& operator=(const TEITTable&) = delete;

    // Flag order: checkCRC32, then parseDescriptors; both and previous are
    // accepted and ignored: no header check, no CRC, no version test, any
    // table_id is taken. The header is read at fixed positions. A refused
    // event refuses the section with ERROR_INVALID_DESCRIPTOR_LENGTH, and so
    // does a section too short for its 14-byte header. No log line of its own.
    //
    // Platform calls, in this order: lock the handle the shared second
    // variable holds, create the two new handles (constructor), and after the
    // parse unlock the handle the second variable holds then (the new one; on
    // a refusal the table is deleted first, so its destroys come before the
    // unlock). A lock of the library's own, taken before these calls, makes
    // concurrent parses and deletions safe without changing that sequence.
    static TEITTable* parse(U8* sectionData, U32 dataLength, BOOL checkCRC32, BOOL parseDescriptors,
                            U16* errorCode, TEITTable* previous);

    U16 getVersion() const { return version; }
    U16 getServiceId() const { return service_id; }
    U16 getTransportStreamId() const { return transport_stream_id; }
    U16 getOriginalNetworkId() const { return original_network_id; }
    U8 getTableId() const { return tableId; }
    U8 getSectionNumber() const { return sectionNumber; }
    U8 getLastSectionNumber() const { return lastSectionNumber; }
    U8 getSegmentLastSectionNumber() const { return segmentLastSectionNumber; }
    U8 getLastTableId() const { return lastTableId; }

    // The table's own list of event ids, ascending; valid until the next
    // addItem or the table's destruction.
    std::list<U16>& getEventsIDs() { return *m_pServiceIds; }
    const std::list<U16>& getEventsIDs() const { return *m_pServiceIds; }
    // Null when absent.
    TEventItemDescriptor* getEvent(U16 eventId) const { return events.get(eventId); }
    // A caller's add under the item's event_id: an event already stored under
    // that id is displaced without being deleted (it is the caller's to
    // free). The id list is rebuilt. A null item is ignored.
    void addItem(TEventItemDescriptor* item);

private:
    BOOL parseEvents(U16* errorCode);
    void rebuildEventIds();

    VURO_U16 version;
    VURO_U16 service_id;
    VURO_U16 transport_stream_id;
    VURO_U16 original_network_id;
    VURO_U8 tableId;
    VURO_U8 sectionNumber;
    VURO_U8 lastSectionNumber;
    VURO_U8 segmentLastSectionNumber;
    VURO_U8 lastTableId;
    // Despite its name: the event ids, ascending.
    std::list<U16>* m_pServiceIds;
    TISDBTItemMap<U16, TEventItemDescriptor> events;
};

} // namespace Vuro

#endif
