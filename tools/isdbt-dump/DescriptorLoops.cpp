#include "DescriptorLoops.h"

#include <cstdio>

namespace VuroTools {

namespace {

unsigned u16(const std::uint8_t* p) { return static_cast<unsigned>(p[0] << 8 | p[1]); }
unsigned length12(const std::uint8_t* p) { return u16(p) & 0x0FFF; }

std::string keyed(const char* what, unsigned key, int digits)
{
    char text[48];
    std::snprintf(text, sizeof text, "%s 0x%0*X", what, digits, key);
    return text;
}

// Reads the loops of one section; every step checks the bytes it reads
// against the end of the section's body.
class LoopReader {
public:
    LoopReader(const std::uint8_t* section, std::size_t end) : m_section(section), m_end(end) {}

    // A loop whose 12-bit length is at position; false when it does not fit.
    bool loopAt(std::size_t& position, const std::string& where)
    {
        if (!fits(position, 2))
            return false;
        const std::size_t size = length12(m_section + position);
        position += 2;
        if (!fits(position, size))
            return false;
        if (size)
            loops.push_back({where, position, position + size});
        position += size;
        return true;
    }
    // The bytes up to the end as one loop.
    void rest(std::size_t position, const std::string& where)
    {
        if (position < m_end)
            loops.push_back({where, position, m_end});
    }
    // Entries of a list of size bytes at position: each has fixed bytes then
    // a loop length; name gives the entry's label from its first bytes.
    template <class Name>
    void entries(std::size_t position, std::size_t size, std::size_t fixed, Name name)
    {
        if (position > m_end)
            return;
        if (!fits(position, size))
            size = m_end - position;
        const std::size_t end = position + size;
        while (position + fixed + 2 <= end) {
            const std::string where = name(m_section + position);
            position += fixed;
            if (!loopAt(position, where) || position > end)
                return;
        }
    }
    bool fits(std::size_t position, std::size_t size) const { return position <= m_end && size <= m_end - position; }
    std::size_t end() const { return m_end; }

    std::vector<DescriptorLoop> loops;

private:
    const std::uint8_t* m_section;
    std::size_t m_end;
};

} // namespace

std::vector<DescriptorLoop> descriptorLoops(const std::uint8_t* section, std::size_t length)
{
    if (length < 3)
        return {};
    const std::size_t declared = 3 + length12(section + 1);
    const std::size_t total = declared < length ? declared : length;
    const bool longHeader = (section[1] & 0x80) != 0;
    const std::uint8_t tableId = section[0];
    // Long-header sections and the TOT end with a CRC_32.
    if (total < 3 + 4)
        return {};
    LoopReader reader(section, total - ((longHeader || tableId == 0x73) ? 4 : 0));
    std::size_t at = 8;
    auto label = [](const char* what, int digits) {
        return [what, digits](const std::uint8_t* p) { return keyed(what, u16(p), digits); };
    };
    if (tableId == 0x01) { // CAT
        reader.rest(8, "CA");
    } else if (tableId == 0x02) { // PMT: program_info, then stream_type, PID, ES_info
        at = 10;
        if (reader.loopAt(at, "program"))
            reader.entries(at, reader.end() - at, 3, [](const std::uint8_t* p) {
                return keyed("stream", u16(p + 1) & 0x1FFF, 4);
            });
    } else if (tableId == 0x40 || tableId == 0x41 || tableId == 0x4A) { // NIT, BAT
        if (reader.loopAt(at, tableId == 0x4A ? "bouquet" : "network") && reader.fits(at, 2)) {
            const std::size_t size = length12(section + at);
            reader.entries(at + 2, size, 4, label("transport stream", 4));
        }
    } else if (tableId == 0x42 || tableId == 0x46) { // SDT: onid, reserved, then the services
        reader.entries(11, reader.end() - 11, 3, label("service", 4));
    } else if (tableId >= 0x4E && tableId <= 0x6F) { // EIT: events after 14 header bytes
        reader.entries(14, reader.end() - 14, 10, label("event", 4));
    } else if (tableId == 0x73) { // TOT: after UTC_time
        at = 8;
        reader.loopAt(at, "time offset");
    } else if (tableId == 0x74) { // AIT: common, then applications (identifier, control code)
        if (reader.loopAt(at, "common") && reader.fits(at, 2)) {
            const std::size_t size = length12(section + at);
            reader.entries(at + 2, size, 7, [](const std::uint8_t* p) {
                char text[48];
                std::snprintf(text, sizeof text, "application 0x%08X/0x%04X",
                              static_cast<unsigned>(p[0] << 24 | p[1] << 16 | p[2] << 8 | p[3]), u16(p + 4));
                return std::string(text);
            });
        }
    } else if (tableId == 0x7F) { // SIT: transmission info, then the services
        if (reader.loopAt(at, "transmission info"))
            reader.entries(at, reader.end() - at, 2, label("service", 4));
    } else if (tableId == 0xC4) { // BIT: first loop, then broadcaster_id and its loop
        if (reader.loopAt(at, "network"))
            reader.entries(at, reader.end() - at, 1, [](const std::uint8_t* p) { return keyed("broadcaster", p[0], 2); });
    }
    return reader.loops;
}

std::vector<RawDescriptor> descriptorsIn(const std::uint8_t* section, const DescriptorLoop& loop)
{
    std::vector<RawDescriptor> found;
    std::size_t at = loop.begin;
    while (at + 2 <= loop.end) {
        std::size_t size = 2 + section[at + 1];
        if (size > loop.end - at)
            size = loop.end - at;
        found.push_back({at, size});
        at += size;
    }
    if (at < loop.end)
        found.push_back({at, loop.end - at}); // a lone byte at the end of the loop
    return found;
}

int networkOf(const std::uint8_t* section, std::size_t length)
{
    if (length < 12 || !(section[1] & 0x80))
        return -1;
    const std::uint8_t tableId = section[0];
    if (tableId == 0x40 || tableId == 0xC4)
        return static_cast<int>(u16(section + 3));
    if (tableId == 0x42)
        return static_cast<int>(u16(section + 8));
    if (tableId == 0x4E || (tableId >= 0x50 && tableId <= 0x5F))
        return static_cast<int>(u16(section + 10));
    return -1;
}

bool isJapaneseNetwork(int id) { return (id >= 0x0001 && id <= 0x000B) || (id >= 0x7880 && id <= 0x7FE8); }

} // namespace VuroTools
