// The programme guide the dump gathers while it reads: service names from
// the SDT, the local time offset from the TOT and the events of every EIT
// section. Written as a text guide (--epg) or as XMLTV (--xmltv FILE).
#ifndef VURO_TOOLS_GUIDE_H
#define VURO_TOOLS_GUIDE_H

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>

#include <VuroISDBT.h>

namespace VuroTools {

struct GuideEvent {
    std::uint16_t eventId = 0;
    std::uint32_t start = 0; // seconds since 1970, UTC
    std::uint32_t duration = 0;
    std::uint8_t runningStatus = 0;
    std::uint8_t tableId = 0;
    std::uint8_t sectionNumber = 0;
    std::string language; // ISO 639-2, raw
    std::string name;     // broadcast bytes
    std::string text;     // broadcast bytes
    int genre = -1;       // content_nibble_level_1, -1 when absent
    int rating = 0;       // parental rating code (1 = L ... 6 = 18), 0 when absent
};

struct GuideService {
    std::string name; // broadcast bytes from the SDT service descriptor
    std::map<std::uint16_t, GuideEvent> events;
    int present = -1; // event_id of the present / following event, -1 when none
    int following = -1;
};

// The guide of one run also makes the text coding's guess: a stream whose
// SDT or EIT comes from a Japanese network is shown as ARIB text.
class Guide {
public:
    Guide();
    ~Guide();
    Guide(const Guide&) = delete;
    Guide& operator=(const Guide&) = delete;

    // The guide the running dump feeds (null: none is gathered).
    static Guide* active();
    static void setActive(Guide* guide);

    // Takes what the guide needs from a parsed SDT, TOT or EIT.
    void note(const Vuro::TISDBTTable& table);

    // The offset of local time from UTC in seconds, once a TOT with a local
    // time offset descriptor has been seen.
    bool localOffset(int& seconds) const;

    void writeText(std::FILE* out) const;
    bool writeXmltv(const std::string& path, std::string& error) const;

    // key: original_network_id << 32 | transport_stream_id << 16 | service_id
    const std::map<std::uint64_t, GuideService>& services() const { return m_services; }

private:
    void noteSdt(const Vuro::TSDTTable& sdt);
    void noteTot(const Vuro::TTOTTable& tot);
    void noteEit(const Vuro::TEITTable& eit);

    std::map<std::uint64_t, GuideService> m_services;
    bool m_hasOffset = false;
    int m_offset = 0;
};

// "2023-11-14 19:00:00 UTC", or in local time with its offset ("... -03:00").
std::string utcText(std::uint32_t seconds);
std::string localText(std::uint32_t seconds, int offset);
// "01:30:00"
std::string durationText(std::uint32_t seconds);
// Genre of content_nibble_level_1: the Brazilian table, or ARIB's for a
// Japanese stream.
const char* genreName(int level1);
// Age of a parental rating code: "L", "10" ... "18"; null for other codes.
const char* ratingName(int rating);

} // namespace VuroTools

#endif
