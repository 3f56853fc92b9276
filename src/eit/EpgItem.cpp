#include "EpgItem.h"

#include <cstring>

#include "../descriptors/TAudioComponentDescriptor.h"
#include "../descriptors/TComponentDescriptor.h"
#include "../descriptors/TContentDescriptor.h"
#include "../descriptors/TDigitalCopyControlDescriptor.h"
#include "../descriptors/TParentalRatingDescriptor.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {

// The record's lines carry its own name as their first argument.
const char* const kOrigin = "EpgItem";

const U8 kPresentFollowingTableId = 0x4E;
const U8 kRunningStatusNotRunning = 1;
const U8 kRunningStatusRunning = 4;

} // namespace

EpgItem::EpgItem(U8 tableId, U16 serviceId, U16 tsId, U16 networkId, U16 eventId, S32 startTime, U32 duration,
                 U8 runningStatus, U8 sectionNumber, std::string language, std::string eventName,
                 std::string eventDescription)
    : tableId(tableId), serviceId(serviceId), tsId(tsId), ntwrkId(networkId), eventId(eventId),
      startTime(startTime), duration(duration), runningStatus(runningStatus), sectionNumber(sectionNumber),
      language(std::move(language)), eventName(std::move(eventName)),
      eventDescription(std::move(eventDescription))
{
}

EpgItem::~EpgItem()
{
    VURO_LOGI("%s: DESTRUCTOR", kOrigin);
    for (auto& entry : descriptors)
        delete[] entry.second.first;
    for (U8* copy : m_pDisplacedCopies)
        delete[] copy;
}

void EpgItem::addDescriptorData(U8 tag, U8* data, U32 size)
{
    U8* copy = new U8[size];
    if (size != 0)
        std::memcpy(copy, data, size);
    std::pair<U8*, U32>& entry = descriptors[tag];
    if (entry.first)
        m_pDisplacedCopies.push_back(entry.first);
    entry = std::make_pair(copy, size);
}

std::list<U8> EpgItem::getDescriptorTags() const
{
    std::list<U8> tags;
    for (const auto& entry : descriptors)
        tags.push_back(entry.first);
    return tags;
}

TISDBTDescriptor* EpgItem::getDescriptor(U8 tag)
{
    const auto found = descriptors.find(tag);
    if (found == descriptors.end()) {
        VURO_LOGW("%s: Tag: %d not found!", kOrigin, tag);
        return nullptr;
    }
    U8* data = found->second.first;
    const U32 size = found->second.second;
    switch (tag) {
    case TComponentDescriptor::DESCRIPTOR_TAG:
        return TComponentDescriptor::parse(data, size, nullptr, nullptr);
    case TContentDescriptor::DESCRIPTOR_TAG:
        return TContentDescriptor::parse(data, size, nullptr, nullptr);
    case TParentalRatingDescriptor::DESCRIPTOR_TAG:
        return TParentalRatingDescriptor::parse(data, size, nullptr, nullptr);
    case TAudioComponentDescriptor::DESCRIPTOR_TAG:
        return TAudioComponentDescriptor::parse(data, size, nullptr, nullptr);
    case TDigitalCopyControlDescriptor::DESCRIPTOR_TAG:
        return TDigitalCopyControlDescriptor::parse(data, size, nullptr, nullptr);
    default:
        return nullptr;
    }
}

BOOL EpgItem::isPresentEvent() const
{
    return tableId == kPresentFollowingTableId && sectionNumber == 0 && runningStatus == kRunningStatusRunning
               ? TRUE
               : FALSE;
}

BOOL EpgItem::isFollowingEvent() const
{
    return tableId == kPresentFollowingTableId && sectionNumber == 1 && runningStatus == kRunningStatusNotRunning
               ? TRUE
               : FALSE;
}

void EpgItem::printItem()
{
    VURO_LOGI("%s: +++++++++++++++++++++++++++++++++++++++++", kOrigin);
    if (isPresentEvent())
        VURO_LOGI("%s:  Present Event", kOrigin);
    else if (isFollowingEvent())
        VURO_LOGI("%s:  Following Event", kOrigin);
    else
        VURO_LOGI("%s:  Schedule Event", kOrigin);
    VURO_LOGI("%s:       tableID: %d", kOrigin, tableId);
    VURO_LOGI("%s:     ServiceID: %d", kOrigin, serviceId);
    VURO_LOGI("%s:         Ts ID: %d", kOrigin, tsId);
    VURO_LOGI("%s:     NetworkID: %d", kOrigin, ntwrkId);
    VURO_LOGI("%s:       EventID: %d", kOrigin, eventId);
    // "%ul" prints the number followed by a literal letter l; log readers
    // have always matched that line, so it is kept.
    VURO_LOGI("%s:     StartTime: %ul", kOrigin, static_cast<unsigned>(startTime));
    VURO_LOGI("%s:      Duration: %d", kOrigin, static_cast<int>(duration));
    VURO_LOGI("%s: RunningStatus: %d", kOrigin, runningStatus);
    // "SectionNUmber" is spelled as log filters expect it.
    VURO_LOGI("%s: SectionNUmber: %d", kOrigin, sectionNumber);
    for (const auto& entry : descriptors)
        VURO_LOGI("%s: DescriptorTAG: %d", kOrigin, entry.first);
    VURO_LOGI("%s: +++++++++++++++++++++++++++++++++++++++++", kOrigin);
}

} // namespace Vuro
