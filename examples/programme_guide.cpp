// Builds a programme guide from the EIT the way a receiver's guide does:
// every event of every event table becomes an EpgItem record (the ids, the
// times, name and description from the short event descriptor, and raw
// copies of the content and parental rating descriptors). Each table is
// deleted as soon as its records are made; the guide printed at the end is
// made of the records alone, their descriptors rebuilt from the copies.
//
//   programme-guide [capture.ts]     (the bundled sample stream by default)
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <tuple>

#include "ExampleCapture.h"

using namespace Vuro;

// Ordered by service, then now/next before the schedule, then start time.
using GuideKey = std::tuple<U16, bool, S32, U16>;
using Guide = std::map<GuideKey, std::unique_ptr<EpgItem>>;

static void addEvents(Guide& guide, const TEITTable& eit)
{
    for (U16 eventId : eit.getEventsIDs()) {
        const TEventItemDescriptor* event = eit.getEvent(eventId);
        std::string language, name, description;
        TISDBTDescriptor* shortEvent = event->getDescriptor(TShortEventDescriptor::DESCRIPTOR_TAG);
        if (auto* text = dynamic_cast<TShortEventDescriptor*>(shortEvent)) {
            language = text->getLanguageCode();
            name = text->getEventName();
            description = text->getEventDescription();
        }
        auto item = std::make_unique<EpgItem>(eit.getTableId(), eit.getServiceId(), eit.getTransportStreamId(),
                                              eit.getOriginalNetworkId(), eventId,
                                              static_cast<S32>(event->getStartTime()), event->getDuration(),
                                              event->getRunningStatus(), eit.getSectionNumber(), language, name,
                                              description);
        // The whole descriptor is copied: tag, descriptor_length and body.
        for (U8 tag : {TContentDescriptor::DESCRIPTOR_TAG, TParentalRatingDescriptor::DESCRIPTOR_TAG})
            if (TISDBTDescriptor* descriptor = event->getDescriptor(tag))
                item->addDescriptorData(tag, descriptor->getData(), descriptor->getData()[1] + 2u);
        // A later section with the same event replaces the record.
        const bool schedule = !item->isPresentEvent() && !item->isFollowingEvent();
        guide[GuideKey(item->getServiceId(), schedule, item->getStartTime(), eventId)] = std::move(item);
    }
}

static void printItem(EpgItem& item)
{
    const std::time_t start = item.getStartTime(); // seconds since 1970, as broadcast (no time zone applied)
    std::tm time{};
    gmtime_r(&start, &time);
    char when[24];
    std::strftime(when, sizeof when, "%Y-%m-%d %H:%M", &time);
    const char* slot = item.isPresentEvent() ? "now " : item.isFollowingEvent() ? "next" : "    ";
    std::printf("  %s %s %3u min  %s", slot, when, item.getDuration() / 60,
                VuroExamples::utf8(item.getEventName()).c_str());
    // Descriptors rebuilt from the record's copies; the caller owns each.
    std::unique_ptr<TISDBTDescriptor> content(item.getDescriptor(TContentDescriptor::DESCRIPTOR_TAG));
    if (auto* genre = dynamic_cast<TContentDescriptor*>(content.get()))
        std::printf("  [genre 0x%X/0x%X]", genre->getContentNibbleLevel1(), genre->getContentNibbleLevel2());
    std::unique_ptr<TISDBTDescriptor> rating(item.getDescriptor(TParentalRatingDescriptor::DESCRIPTOR_TAG));
    if (auto* ratings = dynamic_cast<TParentalRatingDescriptor*>(rating.get()))
        if (const TParentalRatingDescriptorItem* first = ratings->get(0))
            std::printf("  [rating %s 0x%X]", first->getCountryCode().c_str(), first->getRating());
    std::printf("\n");
    if (!item.getEventDescription().empty())
        std::printf("       %s\n", VuroExamples::utf8(item.getEventDescription()).c_str());
}

int main(int argc, char** argv)
{
    Guide guide;
    const int status = VuroExamples::readCapture(argc, argv, [&](U16 pid, U8* section, U32 length) {
        // EIT PIDs: 0x0012 (0x0026 and 0x0027 carry the one-seg and other schedules);
        // table_id 0x4E-0x6F. The parse itself takes any table_id.
        if ((pid != 0x0012 && pid != 0x0026 && pid != 0x0027) || section[0] < 0x4E || section[0] > 0x6F)
            return;
        U16 error = TISDBTTable::ERROR_OK;
        std::unique_ptr<TEITTable> eit(TEITTable::parse(section, length, TRUE, TRUE, &error, nullptr));
        if (eit)
            addEvents(guide, *eit);
    }); // every event table is gone here

    U16 service = 0;
    for (auto& entry : guide) {
        EpgItem& item = *entry.second;
        if (service != item.getServiceId()) {
            service = item.getServiceId();
            std::printf("service 0x%04X (transport stream 0x%04X, network 0x%04X)\n", service, item.getTsId(),
                        item.getNetworkId());
        }
        printItem(item);
    }
    return status;
}
