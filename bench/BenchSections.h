// The sections the benchmark parses: every distinct section with an intact
// CRC_32 found in the shared corpus of real captures (when present) and in
// the bundled sample stream, grouped by table.
#ifndef VURO_BENCH_SECTIONS_H
#define VURO_BENCH_SECTIONS_H

#include <cstdint>
#include <string>
#include <vector>

namespace VuroBench {

using Section = std::vector<std::uint8_t>;

struct SectionSet {
    std::vector<Section> sections;
    std::uint64_t bytes = 0;
};

// Sections of a transport stream (188/192/204-byte packets, every PID
// reassembled) or, for *.bin files, of back-to-back sections.
std::vector<Section> readSections(const std::string& path);

// Every *.ts and *.bin file under dir, recursively; empty when dir is absent.
std::vector<Section> readSectionTree(const std::string& dir);

// The sections whose table_id is one of tableIds, once each, CRC_32 intact.
SectionSet select(const std::vector<Section>& all, const std::vector<std::uint8_t>& tableIds);

} // namespace VuroBench

#endif
