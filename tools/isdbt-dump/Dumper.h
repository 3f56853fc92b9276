// The receiver side of the dump: routes each complete section to the table
// class for its PID and table_id, checks its CRC_32, keeps each PID's last
// table as `previous`, prints what the library decodes and counts the rest.
#ifndef VURO_TOOLS_DUMPER_H
#define VURO_TOOLS_DUMPER_H

#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "SectionDemux.h"
#include "TableHandler.h"
#include "TreeOut.h"
#include "TsReader.h"

namespace VuroTools {

struct DumpOptions {
    bool json = false;
    bool all = false;         // print every section: no `previous`, so nothing is "unchanged"
    bool verbose = false;     // show the library's log lines under their section
    bool summaryOnly = false; // no table records, only the closing summary
    bool summary = true;
    std::set<std::uint16_t> pids;    // print only these PIDs (all when empty)
    std::set<std::uint8_t> tableIds; // print only these table_ids (all when empty)
};

// Counts of one PID and table_id.
struct TableCounts {
    std::uint64_t seen = 0;
    std::uint64_t parsed = 0;
    std::uint64_t unchanged = 0;
    std::uint64_t crcErrors = 0;
    std::uint64_t notDecoded = 0;
    std::uint64_t logLines = 0;
    std::map<std::uint16_t, std::uint64_t> refused; // by error code
    std::uint64_t refusedTotal() const;
};

class Dumper : public SectionSink, private PidAnnouncements {
public:
    // Sections read from a file of back-to-back sections carry no PID.
    static constexpr std::uint16_t NO_PID = 0xFFFF;
    // Refusals that leave the error code as it was (a later section of a
    // multi-section table while a previous table is held).
    static constexpr std::uint16_t NO_CODE = 0xFFFF;

    Dumper(const DumpOptions& options, std::FILE* out);
    ~Dumper() override;

    // Marks the fixed PIDs in the demultiplexer; PIDs learnt from the PAT
    // and the PMTs are added to it as they are announced.
    void attach(SectionDemux& demux);

    void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) override;

    // Reads a file of sections placed back to back (each from its table_id,
    // 0xFF stuffing between them skipped). Returns false with a message in
    // error when the data ends inside a section.
    bool readSections(std::uint8_t* data, std::size_t size, std::string& error);

    // The closing summary; report and demux are null for a file of sections.
    void writeSummary(const ReadReport* report, const SectionDemux* demux);

    const std::map<std::uint32_t, TableCounts>& counts() const { return m_counts; }
    std::uint64_t sections() const { return m_sections; }

private:
    void announce(std::uint16_t pid, PidRole role) override;
    void routeSection(std::uint16_t pid, std::uint8_t* section, std::size_t length);
    bool shows(std::uint16_t pid, std::uint8_t tableId) const;
    void beginSectionRecord(const char* what, const char* tableName, std::uint16_t pid, std::uint8_t* section,
                            std::size_t length);
    void endSectionRecord();
    static void logSink(int priority, const char* tag, const char* text, void* context);

    DumpOptions m_options;
    std::FILE* m_file;
    std::unique_ptr<TreeOut> m_out;
    std::vector<std::unique_ptr<TableHandler>> m_handlers;
    std::vector<std::uint16_t> m_roles;
    SectionDemux* m_demux = nullptr;
    // Last table per PID (or per table_id_extension for sections without a PID) and handler.
    std::map<std::pair<std::uint32_t, const TableHandler*>, std::unique_ptr<Vuro::TISDBTTable>> m_previous;
    std::map<std::uint32_t, TableCounts> m_counts; // key: pid << 8 | table_id
    std::vector<std::string> m_log;                // lines logged during the current parse
    std::uint64_t m_strayLogLines = 0;
    std::uint64_t m_sections = 0;
    bool m_capturing = false;
};

} // namespace VuroTools

#endif
