#include "Dumper.h"

#include <android/log_host.h>

#include "DescriptorLoops.h"
#include "Names.h"
#include "tables/DescriptorPrinter.h"

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
    if (m_held.count(pid))
        m_announced.push_back(pid);
}

void Dumper::addHandler(std::unique_ptr<TableHandler> handler)
{
    m_handlers.insert(m_handlers.begin(), std::move(handler));
}

bool Dumper::shows(std::uint16_t pid, std::uint8_t tableId) const
{
    if (!m_options.pids.empty() && !m_options.pids.count(pid))
        return false;
    return m_options.tableIds.empty() || m_options.tableIds.count(tableId);
}

bool Dumper::namedByFilter(std::uint16_t pid, std::uint8_t tableId) const
{
    return (!m_options.pids.empty() || !m_options.tableIds.empty()) && shows(pid, tableId);
}

const TableHandler* Dumper::handlerFor(std::uint16_t pid, std::uint8_t tableId) const
{
    std::uint16_t roles = pid == NO_PID ? std::uint16_t(ROLE_ANY) : m_roles[pid];
    if (roles == 0 && m_options.allPids)
        roles = ROLE_ANY;
    for (const auto& candidate : m_handlers)
        if ((roles & candidate->role()) && candidate->accepts(tableId))
            return candidate.get();
    return nullptr;
}

VersionKey Dumper::versionKey(std::uint16_t pid, const TableHandler* handler, const std::uint8_t* section,
                              std::size_t length)
{
    const std::uint8_t tableId = section[0];
    const bool longHeader = length >= 8 && (section[1] & 0x80);
    const int extension = longHeader ? (section[3] << 8 | section[4]) : -1;
    int transportStream = -1, network = -1, sectionNumber = -1;
    if (tableId >= 0x4E && tableId <= 0x6F && longHeader && length >= 12) {
        // Each EIT section is a table of its own: service (the extension),
        // transport stream, network and section_number keep it apart.
        transportStream = section[8] << 8 | section[9];
        network = section[10] << 8 | section[11];
        sectionNumber = section[6];
    }
    return VersionKey(pid, handler, tableId, extension, transportStream, network, sectionNumber);
}

PrintContext Dumper::printContext(std::uint16_t pid) const
{
    PrintContext context;
    context.pid = pid;
    if (!m_options.timeZone.empty()) {
        context.timeZone = m_options.timeZone == "JST" ? "JST" : "UTC";
        context.timeZoneSource = "--tz";
        context.timeZoneDecided = true;
    } else if (m_network >= 0) {
        context.timeZoneDecided = true;
        context.timeZone = isJapaneseNetwork(m_network) ? "JST" : "UTC";
        context.timeZoneSource = isJapaneseNetwork(m_network) ? "Japanese network" : "network outside Japan";
    }
    return context;
}

void Dumper::onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length)
{
    routeSection(pid, section, length);
}

void Dumper::routeSection(std::uint16_t pid, std::uint8_t* section, std::size_t length)
{
    const std::uint8_t tableId = section[0];
    const TableHandler* handler = handlerFor(pid, tableId);
    // A section on a PID nothing announced yet waits for the table that
    // announces it (a PMT completing before the PAT).
    if (pid != NO_PID && m_roles[pid] == 0 && !m_options.allPids && !m_flushing && hold(pid, section, length))
        return;

    ++m_routing;
    ++m_sections;
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
    } else {
        const int network = networkOf(section, length);
        if (network >= 0)
            m_network = network;
        if (handler) {
            decodeSection(pid, *handler, counts, show, section, length);
        } else {
            const bool unannounced = pid != NO_PID && m_roles[pid] == 0 && !m_options.allPids;
            ++(unannounced ? counts.unannounced : counts.notDecoded);
            // Shown only when a filter names it, so that a dump of a whole
            // stream is not flooded with tables that have no class yet.
            if (show && namedByFilter(pid, tableId)) {
                beginSectionRecord(unannounced ? "unannounced" : "not_decoded", tableLabel(tableId, nullptr).c_str(),
                                   pid, section, length);
                m_log.clear();
                if (length >= 8 && (section[1] & 0x80)) {
                    // The long header every such table shares.
                    m_out->hex("table_id_extension", (section[3] << 8) | section[4], 4);
                    m_out->number("version_number", (section[5] >> 1) & 0x1F);
                    m_out->flag("current_next_indicator", (section[5] & 0x01) != 0);
                    m_out->number("section_number", section[6]);
                    m_out->number("last_section_number", section[7]);
                }
                printUndecodedDescriptors(section, length, nullptr);
                endSectionRecord();
            }
        }
    }
    --m_routing;
    if (m_routing == 0)
        replayHeld();
}

void Dumper::decodeSection(std::uint16_t pid, const TableHandler& handler, TableCounts& counts, bool show,
                           std::uint8_t* section, std::size_t length)
{
    std::unique_ptr<TISDBTTable>& previous = m_previous[versionKey(pid, &handler, section, length)];

    m_log.clear();
    m_capturing = true;
    U16 error = NO_CODE;
    TISDBTTable* table =
        handler.parse(section, static_cast<U32>(length), m_options.all ? nullptr : previous.get(), &error);
    m_capturing = false;
    counts.logLines += m_log.size();

    if (table) {
        ++counts.parsed;
        handler.announce(*table, *this);
        if (show) {
            beginSectionRecord("parsed", handler.name(), pid, section, length);
            {
                PrintedDescriptors printed;
                printed.addSpan(section, section + length);
                if (table->getData() && table->getDataLength() == length)
                    printed.addSpan(table->getData(), table->getData() + length);
                handler.printIn(*table, printContext(pid), *m_out);
                m_printed = &printed;
                printUndecodedDescriptors(section, length, table);
                m_printed = nullptr;
            }
            endSectionRecord();
        }
        previous.reset(table);
    } else if (error == TISDBTTable::ERROR_TABLE_NOT_UPDATED) {
        ++counts.unchanged;
    } else {
        ++counts.refused[error];
        if (show) {
            beginSectionRecord("refused", handler.name(), pid, section, length);
            m_out->label("error", errorText(error));
            if (error != NO_CODE)
                m_out->number("error_code", error);
            endSectionRecord();
        }
    }
}

bool Dumper::hold(std::uint16_t pid, const std::uint8_t* section, std::size_t length)
{
    std::vector<std::vector<std::uint8_t>>& held = m_held[pid];
    if (held.size() >= HELD_SECTIONS_PER_PID || m_heldBytes + length > HELD_BYTES)
        return false;
    held.emplace_back(section, section + length);
    m_heldBytes += length;
    return true;
}

void Dumper::replayHeld()
{
    // Announcements made while the held sections replay queue up behind.
    for (std::size_t i = 0; i < m_announced.size(); ++i) {
        const auto found = m_held.find(m_announced[i]);
        if (found == m_held.end())
            continue;
        std::vector<std::vector<std::uint8_t>> sections = std::move(found->second);
        const std::uint16_t pid = found->first;
        m_held.erase(found);
        for (std::vector<std::uint8_t>& section : sections) {
            m_heldBytes -= section.size();
            ++m_routing;
            routeSection(pid, section.data(), section.size());
            --m_routing;
        }
    }
    m_announced.clear();
}

void Dumper::countHeldAsUnannounced()
{
    // No table announced them: counted (and shown when a filter names them)
    // as unannounced, in PID order.
    std::map<std::uint16_t, std::vector<std::vector<std::uint8_t>>> held = std::move(m_held);
    m_held.clear();
    m_heldBytes = 0;
    m_flushing = true;
    for (auto& entry : held)
        for (std::vector<std::uint8_t>& section : entry.second)
            routeSection(entry.first, section.data(), section.size());
    m_flushing = false;
}

void Dumper::printUndecodedDescriptors(const std::uint8_t* section, std::size_t length, const TISDBTTable* table)
{
    // The table keeps a copy of its section: its descriptors may point into
    // either; one with its bytes printed was held by an object.
    const U8* copy = table && table->getData() && table->getDataLength() == length ? table->getData() : nullptr;
    bool open = false;
    for (const DescriptorLoop& loop : descriptorLoops(section, length)) {
        for (const RawDescriptor& raw : descriptorsIn(section, loop)) {
            if (m_printed && (m_printed->contains(section + raw.offset) || (copy && m_printed->contains(copy + raw.offset))))
                continue;
            if (!open) {
                m_out->beginList("undecoded_descriptors");
                open = true;
            }
            const std::uint8_t tag = section[raw.offset];
            const char* name = descriptorTagName(tag);
            char title[96];
            std::snprintf(title, sizeof title, "descriptor 0x%02X%s%s in %s", tag, name ? " " : "", name ? name : "",
                          loop.where.c_str());
            m_out->beginItem(title);
            m_out->named("descriptor_tag", tag, 2, name);
            m_out->number("descriptor_length", raw.size >= 2 ? section[raw.offset + 1] : 0);
            m_out->label("location", loop.where);
            if (m_options.verbose)
                m_out->bytes("data", section + raw.offset, raw.size);
            m_out->end();
        }
    }
    if (open)
        m_out->end();
}

void Dumper::beginSectionRecord(const char* result, const char* tableName, std::uint16_t pid,
                                std::uint8_t* section, std::size_t length)
{
    char title[160];
    const std::string what = result;
    const char* outcome = what == "parsed"        ? ""
                          : what == "refused"     ? ": refused"
                          : what == "unannounced" ? ": on a PID no table announces"
                          : what == "not_decoded" ? ": not decoded (no class for it)"
                                                  : ": CRC_32 error";
    if (pid == NO_PID)
        std::snprintf(title, sizeof title, "%s, table_id 0x%02X, %zu bytes%s", tableName, section[0], length, outcome);
    else
        std::snprintf(title, sizeof title, "%s on PID 0x%04X, table_id 0x%02X, %zu bytes%s", tableName, pid,
                      section[0], length, outcome);
    m_out->beginRecord(title);
    if (m_options.json) {
        if (pid == NO_PID)
            m_out->none("pid");
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
    // The whole file is at hand: the first network a section names decides
    // the time zone from the start (a TOT often comes before the SDT).
    for (std::size_t at = 0; m_network < 0 && at + 3 <= size;) {
        if (data[at] == 0xFF) {
            ++at;
            continue;
        }
        const std::size_t length = 3 + (((data[at + 1] & 0x0F) << 8) | data[at + 2]);
        if (length > size - at)
            break;
        m_network = networkOf(data + at, length);
        at += length;
    }
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

std::string Dumper::pidContent(std::uint16_t pid, const PidCounters& counters) const
{
    switch (counters.content) {
    case PidContent::NULL_PACKETS: return "null packets";
    case PidContent::PES: return "PES";
    case PidContent::UNKNOWN:
        if (counters.scrambledPackets)
            return "scrambled";
        return counters.errorPackets == counters.packets ? "transport errors only" : "no unit start";
    case PidContent::SECTIONS: break;
    }
    std::string text = "sections";
    const char* separator = ": ";
    for (auto it = m_counts.lower_bound(countsKey(pid, 0)); it != m_counts.end() && (it->first >> 8) == pid; ++it) {
        const std::uint8_t tableId = static_cast<std::uint8_t>(it->first & 0xFF);
        const char* name = tableIdName(tableId);
        char entry[64];
        std::snprintf(entry, sizeof entry, "%s0x%02X%s%s x %llu", separator, tableId, name ? " " : "", name ? name : "",
                      static_cast<unsigned long long>(it->second.seen));
        text += entry;
        separator = ", ";
    }
    return text;
}

void Dumper::writeSummary(const ReadReport* report, const SectionDemux* demux)
{
    countHeldAsUnannounced();
    if (!m_options.summary)
        return;
    std::vector<std::pair<std::uint32_t, const TableCounts*>> rows;
    for (const auto& entry : m_counts) {
        const std::uint16_t pid = static_cast<std::uint16_t>(entry.first >> 8);
        if (shows(pid, static_cast<std::uint8_t>(entry.first & 0xFF)))
            rows.emplace_back(entry.first, &entry.second);
    }
    // Every PID that had packets, announced or not.
    std::vector<std::uint16_t> pids;
    if (demux)
        for (std::uint16_t pid = 0; pid < PID_COUNT; ++pid)
            if (demux->counters(pid) && (m_options.pids.empty() || m_options.pids.count(pid)))
                pids.push_back(pid);

    auto decodedAs = [this](std::uint16_t pid, std::uint8_t tableId) -> const char* {
        const TableHandler* handler = handlerFor(pid, tableId);
        return handler ? handler->name() : nullptr;
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
                out.none("pid");
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
            out.number("unannounced", static_cast<std::int64_t>(c.unannounced));
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
            out.flag("announced", demux->hasPid(pid));
            out.label("content", pidContent(pid, p));
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
    std::fprintf(file, "  %-6s  %-26s %8s %8s %9s %8s %10s %11s %11s %9s\n", "PID", "table_id", "seen", "parsed",
                 "unchanged", "refused", "CRC errors", "not decoded", "unannounced", "log lines");
    for (const auto& row : rows) {
        const std::uint16_t pid = static_cast<std::uint16_t>(row.first >> 8);
        const std::uint8_t tableId = static_cast<std::uint8_t>(row.first & 0xFF);
        const TableCounts& c = *row.second;
        char pidText[8] = "-";
        if (pid != NO_PID)
            std::snprintf(pidText, sizeof pidText, "0x%04X", pid);
        char tableText[40];
        std::snprintf(tableText, sizeof tableText, "0x%02X %s", tableId, tableLabel(tableId, decodedAs(pid, tableId)).c_str());
        std::fprintf(file, "  %-6s  %-26s %8llu %8llu %9llu %8llu %10llu %11llu %11llu %9llu\n", pidText, tableText,
                     static_cast<unsigned long long>(c.seen), static_cast<unsigned long long>(c.parsed),
                     static_cast<unsigned long long>(c.unchanged), static_cast<unsigned long long>(c.refusedTotal()),
                     static_cast<unsigned long long>(c.crcErrors), static_cast<unsigned long long>(c.notDecoded),
                     static_cast<unsigned long long>(c.unannounced), static_cast<unsigned long long>(c.logLines));
        for (const auto& refusal : c.refused)
            std::fprintf(file, "  %-6s    refused: %s x %llu\n", "", errorText(refusal.first).c_str(),
                         static_cast<unsigned long long>(refusal.second));
    }
    if (!pids.empty()) {
        std::fprintf(file, "  %-6s  %8s %10s %10s %8s %9s %16s  %s\n", "PID", "packets", "CC errors", "duplicates",
                     "TEI", "scrambled", "dropped sections", "content");
        for (std::uint16_t pid : pids) {
            const PidCounters& p = *demux->counters(pid);
            std::fprintf(file, "  0x%04X  %8llu %10llu %10llu %8llu %9llu %16llu  %s%s\n", pid,
                         static_cast<unsigned long long>(p.packets), static_cast<unsigned long long>(p.continuityErrors),
                         static_cast<unsigned long long>(p.duplicates), static_cast<unsigned long long>(p.errorPackets),
                         static_cast<unsigned long long>(p.scrambledPackets),
                         static_cast<unsigned long long>(p.droppedSections), pidContent(pid, p).c_str(),
                         p.content == PidContent::SECTIONS && !demux->hasPid(pid) ? " (not announced)" : "");
        }
    }
}

} // namespace VuroTools
