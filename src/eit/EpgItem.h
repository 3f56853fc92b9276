#ifndef VURO_EPG_ITEM_H
#define VURO_EPG_ITEM_H

#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "../descriptors/TISDBTDescriptor.h"

namespace Vuro {

// A flat programme guide record built by the caller from an event table's
// event and kept after the table is gone: the identifying numbers, the times,
// the texts and raw copies of chosen descriptors, from which descriptor
// objects are rebuilt on demand.
class EpgItem {
public:
    EpgItem(U8 tableId, U16 serviceId, U16 tsId, U16 networkId, U16 eventId, S32 startTime, U32 duration,
            U8 runningStatus, U8 sectionNumber, std::string language, std::string eventName,
            std::string eventDescription);
    // Logs its destructor line and frees every byte copy it made.
    virtual ~EpgItem();

    EpgItem(const EpgItem&) = delete;
    EpgItem& operator=(const EpgItem&) = delete;

    U8 getTableId() const { return tableId; }
    U16 getServiceId() const { return serviceId; }
    U16 getTsId() const { return tsId; }
    U16 getNetworkId() const { return ntwrkId; }
    U16 getEventId() const { return eventId; }
    S32 getStartTime() const { return startTime; }
    U32 getDuration() const { return duration; }
    U8 getRunningStatus() const { return runningStatus; }
    U8 getSectionNumber() const { return sectionNumber; }
    std::string getLanguageCode() const { return language; }
    std::string getEventName() const { return eventName; }
    std::string getEventDescription() const { return eventDescription; }

    // Copies size bytes of a whole descriptor (tag and length included) under
    // tag; a later copy for the same tag replaces the earlier in the map. The
    // earlier copy stays allocated until the record is destroyed, so
    // descriptors already built from it remain valid.
    void addDescriptorData(U8 tag, U8* data, U32 size);
    // Ascending.
    std::list<U8> getDescriptorTags() const;
    // A new descriptor (the caller owns it) parsed from the stored copy for
    // 0x50, 0x54, 0x55, 0xC4 or 0xC1; null for any other stored tag, or, with
    // a "not found" line, for a tag never stored. The descriptor points into
    // the record's copy and is valid while the record lives.
    TISDBTDescriptor* getDescriptor(U8 tag);

    // Present: table 0x4E, section 0, running. Following: table 0x4E, section
    // 1, not yet running. Anything else is a schedule event.
    BOOL isPresentEvent() const;
    BOOL isFollowingEvent() const;

    // Writes the record to the log (info priority).
    void printItem();

private:
    VURO_U8 tableId;
    VURO_U16 serviceId;
    VURO_U16 tsId;
    VURO_U16 ntwrkId;
    VURO_U16 eventId;
    VURO_S32 startTime;
    VURO_U32 duration;
    VURO_U8 runningStatus;
    VURO_U8 sectionNumber;
    std::string language;
    std::string eventName;
    std::string eventDescription;
    std::map<U8, std::pair<U8*, U32>> descriptors;
    // Copies displaced by a later addDescriptorData for the same tag.
    std::vector<U8*> m_pDisplacedCopies;
};

} // namespace Vuro

#endif
