#ifndef VURO_TEVENT_ITEM_DESCRIPTOR_H
#define VURO_TEVENT_ITEM_DESCRIPTOR_H

#include <list>
#include <map>

#include "../TISDBTItemMap.h"
#include "../descriptors/TISDBTDescriptor.h"

namespace Vuro {

// One event of an event information section's event loop: event_id (16),
// start_time (40: MJD + BCD hhmmss), duration (24: BCD hhmmss),
// running_status (3), free_CA_mode (1), descriptors_loop_length (12),
// descriptors. Not a descriptor despite its name.
//
// The event keeps its own copy of the bytes it was handed (normally the rest
// of the section) and its descriptors point into that copy, so they live as
// long as the event.
class TEventItemDescriptor {
public:
    TEventItemDescriptor();
    virtual ~TEventItemDescriptor();

    TEventItemDescriptor(const TEventItemDescriptor&) = delete;
    TEventItemDescriptor& operator=(const TEventItemDescriptor&) = delete;

    // The event's descriptors: short event (0x4D), component (0x50), content
    // (0x54), parental rating (0x55), digital copy control (0xC1) and audio
    // component (0xC4) are parsed; stuffing, extended event, and the tags
    // 0xC7, 0xD5, 0xD6, 0xD9, 0xDE are skipped silently; any other tag refuses
    // the whole event with errorCode left as it was. A listed descriptor that
    // fails is left out and the event is still returned with ERROR_OK.
    // *itemLength is added to (the caller zeroes it) by the descriptors' total
    // size; the 12 fixed bytes are not counted. Fewer than 12 bytes, or
    // descriptors running past the data: null and ERROR_INVALID_DATA_LENGTH.
    static TEventItemDescriptor* parse(U8* sectionData, U32 dataLength, U32* itemLength, U16* errorCode);

    U16 getEventId() const { return m_iEvent_id; }
    // Seconds since 1970-01-01 00:00, with no time zone adjustment.
    U32 getStartTime() const { return m_iStart_time; }
    U32 getDuration() const { return m_iDuration; }
    U8 getRunningStatus() const { return m_iRunning_status; }
    // free_CA_mode is never read from the section: always FALSE.
    BOOL getFreeCAMode() const { return m_iFree_CA_mode; }
    U8 getStartHour() const { return m_iStartHour; }
    U8 getStartMinute() const { return m_iStartMinute; }
    U8 getDurationHour() const { return m_iDurationHour; }
    U8 getDurationMinute() const { return m_iDurationMinute; }

    // Stamped by the event table, zero until then.
    U8 getSectionNumber() const { return m_iSectionNumber; }
    void setSectionNumber(U8 sectionNumber) { m_iSectionNumber = sectionNumber; }
    U8 getTableId() const { return m_iTableId; }
    void setTableId(U8 tableId) { m_iTableId = tableId; }

    // A caller's add: a descriptor already stored under the tag is displaced
    // without being deleted (it is the caller's to free).
    void addDescriptor(U8 tag, TISDBTDescriptor* descriptor);
    // Null when absent.
    TISDBTDescriptor* getDescriptor(U8 tag) const;
    // A copy of the map; the descriptors stay owned by the event.
    std::map<U8, TISDBTDescriptor*> getAll() const;
    // Ascending.
    std::list<U8> getDescriptorTags() const;

    // The copy of the bytes parse was handed; the length is kept in 16 bits.
    U8* getData() const { return data; }
    U16 getDataLength() const { return dataLength; }

    // Events compare by event_id only.
    bool operator==(const TEventItemDescriptor& other) const { return m_iEvent_id == other.m_iEvent_id; }

private:
    BOOL parseDescriptors(U32 available, U32* itemLength, U16* errorCode);

    VURO_U16 m_iEvent_id;
    VURO_U32 m_iStart_time;
    VURO_U32 m_iDuration;
    VURO_U8 m_iRunning_status;
    VURO_BOOL m_iFree_CA_mode;
    VURO_U8 m_iStartHour;
    VURO_U8 m_iStartMinute;
    VURO_U8 m_iDurationHour;
    VURO_U8 m_iDurationMinute;
    VURO_U8 m_iSectionNumber;
    VURO_U8 m_iTableId;
    VURO_U8* data;
    VURO_U16 dataLength;
    TISDBTItemMap<U8, TISDBTDescriptor> descriptors;
};

} // namespace Vuro

#endif
