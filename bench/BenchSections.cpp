#include "BenchSections.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <unistd.h>

#include <utils/VuroISDBTUtils.h>

#include "SectionDemux.h"
#include "TsReader.h"

namespace VuroBench {

namespace {

class Collector : public VuroTools::SectionSink {
public:
    explicit Collector(std::vector<Section>& out) : m_out(out) {}
    void onSection(std::uint16_t, std::uint8_t* section, std::size_t length) override
    {
        m_out.emplace_back(section, section + length);
    }

private:
    std::vector<Section>& m_out;
};

bool endsWith(const std::string& text, const std::string& tail)
{
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

std::vector<Section> readSections(const std::string& path)
{
    std::vector<Section> out;
    if (endsWith(path, ".bin")) {
        std::ifstream in(path, std::ios::binary);
        const Section data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        for (std::size_t at = 0; at + 3 <= data.size();) {
            const std::size_t length = 3 + (((data[at + 1] & 0x0F) << 8) | data[at + 2]);
            if (at + length > data.size())
                break;
            out.emplace_back(data.begin() + at, data.begin() + at + length);
            at += length;
        }
        return out;
    }
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0)
        return out;
    Collector collector(out);
    VuroTools::SectionDemux demux(collector);
    for (std::uint16_t pid = 0; pid < VuroTools::PID_COUNT - 1; ++pid)
        demux.addPid(pid);
    VuroTools::TsReader reader(fd);
    reader.run(demux);
    ::close(fd);
    return out;
}

std::vector<Section> readSectionTree(const std::string& dir)
{
    std::vector<Section> out;
    std::error_code error;
    if (!std::filesystem::is_directory(dir, error))
        return out;
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(dir, error)) {
        const std::string path = entry.path().string();
        if (entry.is_regular_file() && (endsWith(path, ".ts") || endsWith(path, ".bin")))
            files.push_back(path);
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        std::vector<Section> sections = readSections(file);
        std::move(sections.begin(), sections.end(), std::back_inserter(out));
    }
    return out;
}

SectionSet select(const std::vector<Section>& all, const std::vector<std::uint8_t>& tableIds)
{
    SectionSet set;
    std::set<Section> seen;
    for (const Section& section : all) {
        if (section.size() < 8 || std::find(tableIds.begin(), tableIds.end(), section[0]) == tableIds.end())
            continue;
        Section copy = section;
        if (Vuro::ISDBTUtils::getSectionCRC32(copy.data(), static_cast<Vuro::U32>(copy.size())) != 0)
            continue;
        if (!seen.insert(section).second)
            continue;
        set.bytes += section.size();
        set.sections.push_back(section);
    }
    return set;
}

} // namespace VuroBench
