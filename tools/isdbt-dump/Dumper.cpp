#include "Dumper.h"

#include <android/log_host.h>

#include "Names.h"

using namespace Vuro;

namespace VuroTools {

namespace {

// PIDs whose tables a receiver knows without being told.
struct FixedPid {
    std::uint16_t pid;
    PidRole role;
};
constexpr FixedPid kFixedPids[] = {
    {0x0000, ROLE_PAT}, {0x0010, ROLE_NIT},  {0x0011, ROLE_SDT},  {0x0012, ROLE_EIT}, {0x0014, ROLE_TOT},
    {0x0023, ROLE_SDTT}, {0x0026, ROLE_EIT}, {0x0027, ROLE_EIT}, {0x0028, ROLE_SDTT},
};

std::uint32_t countsKey(std::uint16_t pid, std::uint8_t tableId) { return (std::uint32_t(pid) << 8) | tableId; }

std::string errorText(std::uint16_t code)
{
    if (code == Dumper::NO_CODE)
        return "no error code";
    const char* name = errorCodeName(code);
    return name ? name : "error " + std::to_string(code);
}

std::string tableLabel(std::uint8_t tableId, const char* decodedAs)
{
    if (decodedAs)
        return decodedAs;
    const char* name = tableIdName(tableId);
    return name ? name : "unassigned";
}

char priorityLetter(int priority)
{
    static const char kLetters[] = "??VDIWEFS";
    return priority >= 0 && priority <= 8 ? kLetters[priority] : '?';
}

} // namespace

std::uint64_t TableCounts::refusedTotal() const
{
    std::uint64_t total = 0;
    for (const auto& entry : refused)
        total += entry.second;
    return total;
}

Dumper::Dumper(const DumpOptions& options, std::FILE* out)
    : m_options(options), m_file(out), m_out(options.json ? makeJsonOut(out) : makeTextOut(out)),
      m_handlers(makeTableHandlers()), m_roles(PID_COUNT, 0)
{
    for (const FixedPid& fixed : kFixedPids)
        m_roles[fixed.pid] |= fixed.role;
    android_log_host_set_sink(&Dumper::logSink, this);
}

Dumper::~Dumper() { android_log_host_set_sink(nullptr, nullptr); }

void Dumper::logSink(int priority, const char* tag, const char* text, void* context)
{
    Dumper& self = *static_cast<Dumper*>(context);
    std::string line(1, priorityLetter(priority));
    line += '/';
    line += tag;
    line += ": ";
    line += text;
    if (self.m_capturing) {
        self.m_log.push_back(std::move(line));
        return;
    }
    ++self.m_strayLogLines;
    if (self.m_options.verbose)
        std::fprintf(stderr, "%s\n", line.c_str());
}

void Dumper::attach(SectionDemux& demux)
{
    m_demux = &demux;
    for (std::uint16_t pid = 0; pid < PID_COUNT; ++pid)
        if (m_roles[pid])
            demux.addPid(pid);
}

void Dumper::announce(std::uint16_t pid, PidRole role)
{
    if (pid >= PID_COUNT)
        return;
    m_roles[pid] |= role;
    if (m_demux)
        m_demux->addPid(pid);
}

bool Dumper::shows(std::uint16_t pid, std::uint8_t tableId) const
{
    if (!m_options.pids.empty() && !m_options.pids.count(pid))
        return false;
    return m_options.tableIds.empty() || m_options.tableIds.count(tableId);
}

void Dumper::onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length)
{
    routeSection(pid, section, length);
}

void Dumper::routeSection(std::uint16_t pid, std::uint8_t* section, std::size_t length)
{
    ++m_sections;
    const std::uint8_t tableId = section[0];
    TableCounts& counts = m_counts[countsKey(pid, tableId)];
    ++counts.seen;
    const bool show = !m_options.summaryOnly && shows(pid, tableId);

    // Sections with the long header carry a CRC_32, and so does the TOT.
    const bool hasCrc = (length > 1 && (section[1] & 0x80)) || tableId == 0x73;
    if (hasCrc && ISDBTUtils::getSectionCRC32(section, static_cast<U32>(length)) != 0) {
        ++counts.crcErrors;
        if (show) {
            beginSectionRecord("crc_error", tableLabel(tableId, nullptr).c_str(), pid, section, length);
            m_log.clear();
            endSectionRecord();
        }
        return;
    }

    const std::uint16_t roles = pid == NO_PID ? std::uint16_t(ROLE_ANY) : m_roles[pid];
    const TableHandler* handler = nullptr;
    for (const auto& candidate : m_handlers)
        if ((roles & candidate->role()) && candidate->accepts(tableId)) {
            handler = candidate.get();
            break;
        }
    if (!handler) {
        ++counts.notDecoded;
        return;
    }

    // Without a PID, each table_id_extension stands for a PID of its own.
    std::uint32_t previousKey = pid;
    if (pid == NO_PID)
        previousKey = 0x10000u | (length >= 5 && (section[1] & 0x80) ? (section[3] << 8) | section[4] : 0);
    std::unique_ptr<TISDBTTable>& previous = m_previous[{previousKey, handler}];

    m_log.clear();
    m_capturing = true;
    U16 error = NO_CODE;
    TISDBTTable* table =
        handler->parse(section, static_cast<U32>(length), m_options.all ? nullptr : previous.get(), &error);
    m_capturing = false;
    counts.logLines += m_log.size();

    if (table) {
        ++counts.parsed;
        handler->announce(*table, *this);
        if (show) {
            beginSectionRecord("parsed", handler->name(), pid, section, length);
            handler->print(*table, *m_out);
            endSectionRecord();
        }
        previous.reset(table);
    } else if (error == TISDBTTable::ERROR_TABLE_NOT_UPDATED) {
        ++counts.unchanged;
    } else {
        ++counts.refused[error];
        if (show) {
            beginSectionRecord("refused", handler->name(), pid, section, length);
            m_out->label("error", errorText(error));
            if (error != NO_CODE)
                m_out->number("error_code", error);
            endSectionRecord();
        }
    }
}

void Dumper::beginSectionRecord(const char* result, const char* tableName, std::uint16_t pid,
                                std::uint8_t* section, std::size_t length)
{
    char title[160];
    const std::string what = result;
    const char* outcome = what == "parsed" ? "" : what == "refused" ? ": refused" : ": CRC_32 error";
    if (pid == NO_PID)
        std::snprintf(title, sizeof title, "%s, table_id 0x%02X, %zu bytes%s", tableName, section[0], length, outcome);
    else
        std::snprintf(title, sizeof title, "%s on PID 0x%04X, table_id 0x%02X, %zu bytes%s", tableName, pid,
                      section[0], length, outcome);
    m_out->beginRecord(title);
    if (m_options.json) {
        if (pid == NO_PID)
            m_out->label("pid", "none");
        else
            m_out->number("pid", pid);
        m_out->number("table_id", section[0]);
        m_out->label("table", tableName);
        m_out->number("length", static_cast<std::int64_t>(length));
        m_out->label("result", result);
    }
}

void Dumper::endSectionRecord()
{
    if (m_options.verbose && !m_log.empty()) {
        m_out->beginList("log");
        for (const std::string& line : m_log)
            m_out->value(line);
        m_out->end();
    }
    m_out->endRecord();
}

bool Dumper::readSections(std::uint8_t* data, std::size_t size, std::string& error)
{
    std::size_t position = 0;
    while (position < size) {
        if (data[position] == 0xFF) {
            ++position; // stuffing between sections
            continue;
        }
        if (size - position < 3) {
            error = "truncated section at offset " + std::to_string(position) + ": " +
                    std::to_string(size - position) + " bytes left, a section header has 3";
            return false;
        }
        const std::size_t length = 3 + (((data[position + 1] & 0x0F) << 8) | data[position + 2]);
        if (length > size - position) {
            error = "truncated section at offset " + std::to_string(position) + ": section_length says " +
                    std::to_string(length) + " bytes, " + std::to_string(size - position) + " are left";
            return false;
        }
        routeSection(NO_PID, data + position, length);
        position += length;
    }
    return true;
}

void Dumper::writeSummary(const ReadReport* report, const SectionDemux* demux)
{
    if (!m_options.summary)
        return;
    std::vector<std::pair<std::uint32_t, const TableCounts*>> rows;
    for (const auto& entry : m_counts) {
        const std::uint16_t pid = static_cast<std::uint16_t>(entry.first >> 8);
        if (shows(pid, static_cast<std::uint8_t>(entry.first & 0xFF)))
            rows.emplace_back(entry.first, &entry.second);
    }
    std::vector<std::uint16_t> pids;
    if (demux)
        for (std::uint16_t pid = 0; pid < PID_COUNT; ++pid)
            if (demux->hasPid(pid) && (m_options.pids.empty() || m_options.pids.count(pid)))
                pids.push_back(pid);

    auto decodedAs = [this](std::uint16_t pid, std::uint8_t tableId) -> const char* {
        const std::uint16_t roles = pid == NO_PID ? std::uint16_t(ROLE_ANY) : m_roles[pid];
        for (const auto& handler : m_handlers)
            if ((roles & handler->role()) && handler->accepts(tableId))
                return handler->name();
        return nullptr;
    };

    TreeOut& out = *m_out;
    if (m_options.json) {
        out.beginRecord("");
        out.beginObject("summary");
        if (report) {
            out.number("bytes", static_cast<std::int64_t>(report->bytes));
            out.number("packet_size", static_cast<std::int64_t>(report->format.unitSize));
            out.number("packets", static_cast<std::int64_t>(report->packets));
            out.number("sync_losses", static_cast<std::int64_t>(report->syncLosses));
            out.number("truncated_bytes", static_cast<std::int64_t>(report->trailingBytes));
        }
        out.number("sections", static_cast<std::int64_t>(m_sections));
        out.number("log_lines_outside_parses", static_cast<std::int64_t>(m_strayLogLines));
        out.beginList("tables");
        for (const auto& row : rows) {
            const std::uint16_t pid = static_cast<std::uint16_t>(row.first >> 8);
            const std::uint8_t tableId = static_cast<std::uint8_t>(row.first & 0xFF);
            const TableCounts& c = *row.second;
            out.beginItem("");
            if (pid == NO_PID)
                out.label("pid", "none");
            else
                out.number("pid", pid);
            out.number("table_id", tableId);
            out.label("table", tableLabel(tableId, decodedAs(pid, tableId)));
            out.number("seen", static_cast<std::int64_t>(c.seen));
            out.number("parsed", static_cast<std::int64_t>(c.parsed));
            out.number("unchanged", static_cast<std::int64_t>(c.unchanged));
            out.number("refused", static_cast<std::int64_t>(c.refusedTotal()));
            out.beginObject("refused_by_error");
            for (const auto& refusal : c.refused)
                out.number(errorText(refusal.first).c_str(), static_cast<std::int64_t>(refusal.second));
            out.end();
            out.number("crc_errors", static_cast<std::int64_t>(c.crcErrors));
            out.number("not_decoded", static_cast<std::int64_t>(c.notDecoded));
            out.number("log_lines", static_cast<std::int64_t>(c.logLines));
            out.end();
        }
        out.end();
        out.beginList("pids");
        for (std::uint16_t pid : pids) {
            const PidCounters& p = *demux->counters(pid);
            out.beginItem("");
            out.number("pid", pid);
            out.number("packets", static_cast<std::int64_t>(p.packets));
            out.number("continuity_errors", static_cast<std::int64_t>(p.continuityErrors));
            out.number("duplicates", static_cast<std::int64_t>(p.duplicates));
            out.number("error_packets", static_cast<std::int64_t>(p.errorPackets));
            out.number("scrambled_packets", static_cast<std::int64_t>(p.scrambledPackets));
            out.number("dropped_sections", static_cast<std::int64_t>(p.droppedSections));
            out.end();
        }
        out.end();
        out.end();
        out.endRecord();
        return;
    }

    std::FILE* file = m_file;
    std::fprintf(file, "Summary\n");
    if (report)
        std::fprintf(file, "  %llu bytes, %llu packets of %zu bytes, %llu sync losses, %llu bytes of a truncated packet\n",
                     static_cast<unsigned long long>(report->bytes), static_cast<unsigned long long>(report->packets),
                     report->format.unitSize, static_cast<unsigned long long>(report->syncLosses),
                     static_cast<unsigned long long>(report->trailingBytes));
    std::fprintf(file, "  %llu sections, %llu library log lines outside parses\n",
                 static_cast<unsigned long long>(m_sections), static_cast<unsigned long long>(m_strayLogLines));
    std::fprintf(file, "  %-6s  %-26s %8s %8s %9s %8s %10s %11s %9s\n", "PID", "table_id", "seen", "parsed",
                 "unchanged", "refused", "CRC errors", "not decoded", "log lines");
    for (const auto& row : rows) {
        const std::uint16_t pid = static_cast<std::uint16_t>(row.first >> 8);
        const std::uint8_t tableId = static_cast<std::uint8_t>(row.first & 0xFF);
        const TableCounts& c = *row.second;
        char pidText[8] = "-";
        if (pid != NO_PID)
            std::snprintf(pidText, sizeof pidText, "0x%04X", pid);
        char tableText[40];
        std::snprintf(tableText, sizeof tableText, "0x%02X %s", tableId, tableLabel(tableId, decodedAs(pid, tableId)).c_str());
        std::fprintf(file, "  %-6s  %-26s %8llu %8llu %9llu %8llu %10llu %11llu %9llu\n", pidText, tableText,
                     static_cast<unsigned long long>(c.seen), static_cast<unsigned long long>(c.parsed),
                     static_cast<unsigned long long>(c.unchanged), static_cast<unsigned long long>(c.refusedTotal()),
                     static_cast<unsigned long long>(c.crcErrors), static_cast<unsigned long long>(c.notDecoded),
                     static_cast<unsigned long long>(c.logLines));
        for (const auto& refusal : c.refused)
            std::fprintf(file, "  %-6s    refused: %s x %llu\n", "", errorText(refusal.first).c_str(),
                         static_cast<unsigned long long>(refusal.second));
    }
    if (!pids.empty()) {
        std::fprintf(file, "  %-6s  %8s %10s %10s %8s %9s %16s\n", "PID", "packets", "CC errors", "duplicates",
                     "TEI", "scrambled", "dropped sections");
        for (std::uint16_t pid : pids) {
            const PidCounters& p = *demux->counters(pid);
            if (p.packets == 0)
                continue;
            std::fprintf(file, "  0x%04X  %8llu %10llu %10llu %8llu %9llu %16llu\n", pid,
                         static_cast<unsigned long long>(p.packets), static_cast<unsigned long long>(p.continuityErrors),
                         static_cast<unsigned long long>(p.duplicates), static_cast<unsigned long long>(p.errorPackets),
                         static_cast<unsigned long long>(p.scrambledPackets),
                         static_cast<unsigned long long>(p.droppedSections));
        }
    }
}

} // namespace VuroTools
