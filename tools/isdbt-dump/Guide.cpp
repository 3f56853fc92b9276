#include "Guide.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <vector>

#include "TextCharset.h"

using namespace Vuro;

namespace VuroTools {

namespace {

Guide* g_active = nullptr;

std::uint64_t serviceKey(std::uint16_t onid, std::uint16_t tsid, std::uint16_t sid)
{
    return (static_cast<std::uint64_t>(onid) << 32) | (static_cast<std::uint64_t>(tsid) << 16) | sid;
}

std::string timeText(std::uint32_t seconds, int offset, const char* format)
{
    const std::time_t shifted = static_cast<std::time_t>(seconds) + offset;
    std::tm tm {};
    char text[40] = "";
    if (gmtime_r(&shifted, &tm))
        std::strftime(text, sizeof text, format, &tm);
    return text;
}

// "+HH:MM" or, with colon false, "+HHMM".
std::string offsetText(int offset, bool colon)
{
    const int magnitude = offset < 0 ? -offset : offset;
    char text[16];
    std::snprintf(text, sizeof text, colon ? "%c%02d:%02d" : "%c%02d%02d", offset < 0 ? '-' : '+',
                  magnitude / 3600 % 100, magnitude / 60 % 60);
    return text;
}

// Text for XML character data and attribute values.
std::string xmlEscape(const std::string& text)
{
    std::string out;
    for (char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

// XMLTV's lang attributes take two-letter codes where one exists.
std::string xmlLanguage(const std::string& iso639)
{
    static const struct {
        const char* three;
        const char* two;
    } kCodes[] = {{"por", "pt"}, {"jpn", "ja"}, {"eng", "en"}, {"spa", "es"}};
    for (const auto& code : kCodes)
        if (iso639 == code.three)
            return code.two;
    return iso639;
}

std::string channelId(std::uint64_t key)
{
    char text[48];
    std::snprintf(text, sizeof text, "%04x.%04x.%04x.isdbt", static_cast<unsigned>(key & 0xFFFF),
                  static_cast<unsigned>((key >> 16) & 0xFFFF), static_cast<unsigned>(key >> 32));
    return text;
}

std::string serviceTitle(std::uint64_t key, const GuideService& service)
{
    char text[32];
    std::snprintf(text, sizeof text, "service 0x%04X", static_cast<unsigned>(key & 0xFFFF));
    return service.name.empty() ? text : std::string(text) + " \"" + broadcastText(service.name) + "\"";
}

// Events of a service, ordered by start time (then event_id).
std::vector<const GuideEvent*> byStart(const GuideService& service)
{
    std::vector<const GuideEvent*> events;
    for (const auto& entry : service.events)
        events.push_back(&entry.second);
    std::stable_sort(events.begin(), events.end(),
                     [](const GuideEvent* a, const GuideEvent* b) { return a->start < b->start; });
    return events;
}

} // namespace

Guide::Guide() { setJapaneseStream(false); }
Guide::~Guide()
{
    setJapaneseStream(false);
    if (g_active == this)
        g_active = nullptr;
}

Guide* Guide::active() { return g_active; }
void Guide::setActive(Guide* guide) { g_active = guide; }

std::string utcText(std::uint32_t seconds) { return timeText(seconds, 0, "%Y-%m-%d %H:%M:%S UTC"); }

std::string localText(std::uint32_t seconds, int offset)
{
    return timeText(seconds, offset, "%Y-%m-%d %H:%M:%S ") + offsetText(offset, true);
}

std::string durationText(std::uint32_t seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

const char* genreName(int level1)
{
    // Japanese broadcasts use the ARIB genre table.
    static const char* const kAribGenres[] = {"news",        "sports",       "information", "drama",
                                              "music",       "variety",      "movie",       "animation",
                                              "documentary", "theatre",      "hobby/education", "welfare",
                                              nullptr,       nullptr,        "extension",   "other"};
    if (japaneseStream())
        return level1 >= 0 && level1 < 16 ? kAribGenres[level1] : nullptr;
    static const char* const kGenres[] = {"news",        "sports",   "education", "soap opera",
                                          "mini-series", "series",   "variety",   "reality show",
                                          "information", "comedy",   "children",  "erotic",
                                          "movie",       "sweepstakes, telesales, awards",
                                          "debate/interview", "other"};
    return level1 >= 0 && level1 < 16 ? kGenres[level1] : nullptr;
}

const char* ratingName(int rating)
{
    static const char* const kAges[] = {nullptr, "L", "10", "12", "14", "16", "18"};
    return rating > 0 && rating < 7 ? kAges[rating] : nullptr;
}

void Guide::note(const TISDBTTable& table)
{
    if (const auto* sdt = dynamic_cast<const TSDTTable*>(&table))
        noteSdt(*sdt);
    else if (const auto* tot = dynamic_cast<const TTOTTable*>(&table))
        noteTot(*tot);
    else if (const auto* eit = dynamic_cast<const TEITTable*>(&table))
        noteEit(*eit);
}

void Guide::noteSdt(const TSDTTable& sdt)
{
    if (isJapaneseNetwork(sdt.getOriginalNetworkID()))
        setJapaneseStream(true);
    for (U16 id : sdt.getServiceIDs()) {
        const TServiceDescription* service = sdt.getServiceDescription(id);
        if (!service || !service->getServiceDescriptor())
            continue;
        GuideService& entry = m_services[serviceKey(sdt.getOriginalNetworkID(), sdt.getTransportStreamID(), id)];
        entry.name = service->getServiceDescriptor()->getServiceName();
    }
}

void Guide::noteTot(const TTOTTable& tot)
{
    const TLocalTimeOffsetDescriptor* offsets = tot.getLocalTimeOffsetDescriptor();
    if (!offsets || offsets->getCountryCodes().empty())
        return;
    const TLocalTimeOffsetDescriptorItem* first = offsets->get(offsets->getCountryCodes().front());
    if (!first)
        return;
    const int seconds = first->getLocalTimeOffset();
    m_offset = first->getLocalTimeOffsetPolarity() ? -seconds : seconds;
    m_hasOffset = true;
}

void Guide::noteEit(const TEITTable& eit)
{
    if (isJapaneseNetwork(eit.getOriginalNetworkId()))
        setJapaneseStream(true);
    GuideService& service =
        m_services[serviceKey(eit.getOriginalNetworkId(), eit.getTransportStreamId(), eit.getServiceId())];
    for (U16 id : eit.getEventsIDs()) {
        const TEventItemDescriptor* event = eit.getEvent(id);
        if (!event)
            continue;
        // Sections of the extended schedule (0x58-0x5F) carry other
        // descriptors of the same events: what a section lacks is kept.
        GuideEvent& entry = service.events[id];
        entry.eventId = id;
        entry.start = event->getStartTime();
        entry.duration = event->getDuration();
        entry.runningStatus = event->getRunningStatus();
        entry.tableId = event->getTableId();
        entry.sectionNumber = event->getSectionNumber();
        if (const auto* text = dynamic_cast<const TShortEventDescriptor*>(event->getDescriptor(0x4D))) {
            entry.language = text->getLanguageCode();
            entry.name = text->getEventName();
            entry.text = text->getEventDescription();
        }
        if (const auto* content = dynamic_cast<const TContentDescriptor*>(event->getDescriptor(0x54)))
            entry.genre = content->getContentNibbleLevel1();
        if (const auto* rating = dynamic_cast<const TParentalRatingDescriptor*>(event->getDescriptor(0x55)))
            if (rating->size() > 0 && rating->get(0))
                entry.rating = rating->get(0)->getRating();
        // Present/following sections: section 0 holds the present event,
        // section 1 the following one.
        if (entry.tableId == 0x4E || entry.tableId == 0x4F) {
            if (entry.sectionNumber == 0)
                service.present = id;
            else if (entry.sectionNumber == 1)
                service.following = id;
        }
    }
}

bool Guide::localOffset(int& seconds) const
{
    seconds = m_offset;
    return m_hasOffset;
}

void Guide::writeText(std::FILE* out) const
{
    auto when = [this](std::uint32_t start) { return m_hasOffset ? localText(start, m_offset) : utcText(start); };
    auto line = [&](const char* lead, const GuideEvent& event) {
        std::string extra;
        if (const char* genre = genreName(event.genre))
            extra += std::string(", ") + genre;
        if (const char* age = ratingName(event.rating))
            extra += std::string(", rated ") + age;
        std::fprintf(out, "%s%s  %s  \"%s\" (event 0x%04X%s)\n", lead, when(event.start).c_str(),
                     durationText(event.duration).c_str(), broadcastText(event.name).c_str(), event.eventId,
                     extra.c_str());
        if (!event.text.empty())
            std::fprintf(out, "%*s%s\n", static_cast<int>(std::strlen(lead)) + 2, "",
                         broadcastText(event.text).c_str());
    };
    std::fprintf(out, "Programme guide\n");
    for (const auto& entry : m_services) {
        const GuideService& service = entry.second;
        if (service.events.empty())
            continue;
        std::fprintf(out, "  %s, transport_stream_id 0x%04X, original_network_id 0x%04X\n",
                     serviceTitle(entry.first, service).c_str(), static_cast<unsigned>((entry.first >> 16) & 0xFFFF),
                     static_cast<unsigned>(entry.first >> 32));
        if (service.present >= 0)
            line("    present:   ", service.events.at(static_cast<std::uint16_t>(service.present)));
        if (service.following >= 0)
            line("    following: ", service.events.at(static_cast<std::uint16_t>(service.following)));
        std::fprintf(out, "    schedule:\n");
        for (const GuideEvent* event : byStart(service))
            line("      ", *event);
    }
}

bool Guide::writeXmltv(const std::string& path, std::string& error) const
{
    std::FILE* file = std::fopen(path.c_str(), "w");
    if (!file) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    const int offset = m_hasOffset ? m_offset : 0;
    auto stamp = [offset](std::uint32_t seconds) {
        return timeText(seconds, offset, "%Y%m%d%H%M%S ") + offsetText(offset, false);
    };
    std::fprintf(file, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE tv SYSTEM \"xmltv.dtd\">\n");
    std::fprintf(file, "<tv generator-info-name=\"isdbt-dump\">\n");
    for (const auto& entry : m_services) {
        std::string name = broadcastText(entry.second.name);
        if (name.empty()) {
            char text[24];
            std::snprintf(text, sizeof text, "service 0x%04X", static_cast<unsigned>(entry.first & 0xFFFF));
            name = text;
        }
        std::fprintf(file, "  <channel id=\"%s\">\n    <display-name>%s</display-name>\n  </channel>\n",
                     channelId(entry.first).c_str(), xmlEscape(name).c_str());
    }
    for (const auto& entry : m_services)
        for (const GuideEvent* event : byStart(entry.second)) {
            std::fprintf(file, "  <programme start=\"%s\" stop=\"%s\" channel=\"%s\">\n", stamp(event->start).c_str(),
                         stamp(event->start + event->duration).c_str(), channelId(entry.first).c_str());
            const std::string lang = xmlLanguage(broadcastText(event->language));
            const std::string langAttribute = lang.empty() ? "" : " lang=\"" + xmlEscape(lang) + "\"";
            std::string title = broadcastText(event->name);
            if (title.empty()) {
                char text[24];
                std::snprintf(text, sizeof text, "event 0x%04X", event->eventId);
                title = text;
            }
            std::fprintf(file, "    <title%s>%s</title>\n", langAttribute.c_str(), xmlEscape(title).c_str());
            if (!event->text.empty())
                std::fprintf(file, "    <desc%s>%s</desc>\n", langAttribute.c_str(),
                             xmlEscape(broadcastText(event->text)).c_str());
            if (const char* genre = genreName(event->genre))
                std::fprintf(file, "    <category lang=\"en\">%s</category>\n", xmlEscape(genre).c_str());
            if (!lang.empty())
                std::fprintf(file, "    <language>%s</language>\n", xmlEscape(lang).c_str());
            if (const char* age = ratingName(event->rating))
                std::fprintf(file, "    <rating system=\"ClassInd\">\n      <value>%s</value>\n    </rating>\n", age);
            std::fprintf(file, "  </programme>\n");
        }
    std::fprintf(file, "</tv>\n");
    if (std::fclose(file) != 0) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    return true;
}

} // namespace VuroTools
