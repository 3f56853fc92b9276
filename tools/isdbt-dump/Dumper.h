// The receiver side of the dump: routes each complete section to the table
// class for its PID and table_id, checks its CRC_32, keeps the last table of
// each PID, table_id and table_id_extension (and, for the EIT, transport
// stream, network and section) as `previous`, prints what the library
// decodes, lists the descriptors it leaves out and counts the rest.
#ifndef VURO_TOOLS_DUMPER_H
#define VURO_TOOLS_DUMPER_H

#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "SectionDemux.h"
#include "TableHandler.h"
#include "TreeOut.h"
#include "TsReader.h"

namespace VuroTools {

class PrintedDescriptors;

struct DumpOptions {
    bool json = false;
    bool all = false;         // print every section: no `previous`, so nothing is "unchanged"
    bool verbose = false;     // show the library's log lines under their section
    bool summaryOnly = false; // no table records, only the closing summary
    bool summary = true;
    std::set<std::uint16_t> pids;    // print only these PIDs (all when empty)
    std::set<std::uint8_t> tableIds; // print only these table_ids (all when empty)
    bool allPids = false;     // decode sections on PIDs no table announces, by their table_id
    std::string timeZone;     // "JST" or "UTC" for the TOT; empty: by the network seen
};

// Counts of one PID and table_id.
struct TableCounts {
    std::uint64_t seen = 0;
    std::uint64_t parsed = 0;
    std::uint64_t unchanged = 0;
    std::uint64_t crcErrors = 0;
    std::uint64_t notDecoded = 0;
    std::uint64_t unannounced = 0; // on a PID no table announced (by the end of the input)
    std::uint64_t logLines = 0;
    std::map<std::uint16_t, std::uint64_t> refused; // by error code
    std::uint64_t refusedTotal() const;
};

// The previous table a section is checked against: PID, handler,
// table_id, table_id_extension, and for the EIT (0x4E to 0x6F) the
// transport_stream_id, original_network_id and section_number, as every
// section of those tables is a table of its own (-1 where not used).
using VersionKey = std::tuple<std::uint32_t, const TableHandler*, int, int, int, int, int>;

class Dumper : public SectionSink, private PidAnnouncements {
public:
    // Sections of a PID no table announced yet are held until one does, up
    // to these bounds; past them they are counted as unannounced.
    static constexpr std::size_t HELD_SECTIONS_PER_PID = 256;
    static constexpr std::size_t HELD_BYTES = 8u << 20;

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

    // A handler tried before the built-in ones (tests, tables being added).
    void addHandler(std::unique_ptr<TableHandler> handler);

    static VersionKey versionKey(std::uint16_t pid, const TableHandler* handler, const std::uint8_t* section,
                                 std::size_t length);

    // Reads a file of sections placed back to back (each from its table_id,
    // 0xFF stuffing between them skipped). Returns false with a message in
    // error when the data ends inside a section.
    bool readSections(std::uint8_t* data, std::size_t size, std::string& error);

    // The closing summary; report and demux are null for a file of sections.
    // Sections still held are counted as unannounced first.
    void writeSummary(const ReadReport* report, const SectionDemux* demux);

    const std::map<std::uint32_t, TableCounts>& counts() const { return m_counts; }
    std::uint64_t sections() const { return m_sections; }

private:
    void announce(std::uint16_t pid, PidRole role) override;
    void routeSection(std::uint16_t pid, std::uint8_t* section, std::size_t length);
    void decodeSection(std::uint16_t pid, const TableHandler& handler, TableCounts& counts, bool show,
                       std::uint8_t* section, std::size_t length);
    bool hold(std::uint16_t pid, const std::uint8_t* section, std::size_t length);
    void replayHeld();
    void countHeldAsUnannounced();
    const TableHandler* handlerFor(std::uint16_t pid, std::uint8_t tableId) const;
    bool shows(std::uint16_t pid, std::uint8_t tableId) const;
    bool namedByFilter(std::uint16_t pid, std::uint8_t tableId) const;
    void beginSectionRecord(const char* what, const char* tableName, std::uint16_t pid, std::uint8_t* section,
                            std::size_t length);
    void printUndecodedDescriptors(const std::uint8_t* section, std::size_t length, const Vuro::TISDBTTable* table);
    void endSectionRecord();
    PrintContext printContext(std::uint16_t pid) const;
    std::string pidContent(std::uint16_t pid, const PidCounters& counters) const;
    static void logSink(int priority, const char* tag, const char* text, void* context);

    DumpOptions m_options;
    std::FILE* m_file;
    std::unique_ptr<TreeOut> m_out;
    std::vector<std::unique_ptr<TableHandler>> m_handlers;
    std::vector<std::uint16_t> m_roles;
    SectionDemux* m_demux = nullptr;
    std::map<VersionKey, std::unique_ptr<Vuro::TISDBTTable>> m_previous;
    std::map<std::uint16_t, std::vector<std::vector<std::uint8_t>>> m_held; // by PID, in arrival order
    std::size_t m_heldBytes = 0;
    std::vector<std::uint16_t> m_announced; // PIDs newly announced during the current section
    bool m_flushing = false;                // held sections are being counted at the end
    int m_routing = 0;                      // nesting of routeSection (announcements replay at depth 0)
    int m_network = -1;                     // the last original_network_id / network_id seen
    const PrintedDescriptors* m_printed = nullptr; // descriptors the current record printed
    std::map<std::uint32_t, TableCounts> m_counts; // key: pid << 8 | table_id
    std::vector<std::string> m_log;                // lines logged during the current parse
    std::uint64_t m_strayLogLines = 0;
    std::uint64_t m_sections = 0;
    bool m_capturing = false;
};

} // namespace VuroTools

#endif
