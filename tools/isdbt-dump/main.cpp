// isdbt-dump: decodes the tables of an ISDB-T / ISDB-Tb transport stream (or
// of a file of sections) with the section library and prints them.
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <CLI/CLI.hpp>

#include "Dumper.h"
#include "Guide.h"
#include "Names.h"
#include "SectionDemux.h"
#include "TextCharset.h"
#include "TsReader.h"

using namespace VuroTools;

namespace {

constexpr int EXIT_BAD_INPUT = 1;
constexpr int EXIT_TRUNCATED = 2;

int fail(const std::string& input, const std::string& message)
{
    std::fprintf(stderr, "isdbt-dump: %s: %s\n", input.c_str(), message.c_str());
    return EXIT_BAD_INPUT;
}

// Progress on stderr, at most four times a second, only when stderr is a terminal.
class Progress {
public:
    Progress(bool enabled, std::uint64_t total) : m_enabled(enabled && isatty(STDERR_FILENO)), m_total(total) {}
    ~Progress()
    {
        if (m_shown)
            std::fprintf(stderr, "\r%40s\r", "");
    }
    void operator()(std::uint64_t bytes)
    {
        if (!m_enabled)
            return;
        const auto now = std::chrono::steady_clock::now();
        if (now - m_last < std::chrono::milliseconds(250))
            return;
        m_last = now;
        m_shown = true;
        if (m_total)
            std::fprintf(stderr, "\risdbt-dump: %llu MB (%u%%)", static_cast<unsigned long long>(bytes >> 20),
                         static_cast<unsigned>(bytes * 100 / m_total));
        else
            std::fprintf(stderr, "\risdbt-dump: %llu MB", static_cast<unsigned long long>(bytes >> 20));
    }

private:
    bool m_enabled;
    std::uint64_t m_total;
    bool m_shown = false;
    std::chrono::steady_clock::time_point m_last = std::chrono::steady_clock::now();
};

bool parsePid(const std::string& text, std::uint16_t& pid)
{
    char* end = nullptr;
    errno = 0;
    const unsigned long value = std::strtoul(text.c_str(), &end, 0);
    if (errno || !end || *end || text.empty() || value > 0x1FFF)
        return false;
    pid = static_cast<std::uint16_t>(value);
    return true;
}

// Reads until the end of the input, or until data holds at least limit bytes.
bool readAll(int fd, std::vector<std::uint8_t>& data, std::string& error, std::size_t limit = SIZE_MAX)
{
    std::uint8_t block[1 << 16];
    while (data.size() < limit) {
        const ssize_t got = ::read(fd, block, sizeof block);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            error = std::string("cannot read the input: ") + std::strerror(errno);
            return false;
        }
        if (got == 0)
            return true;
        data.insert(data.end(), block, block + got);
    }
    return true;
}

// Bytes enough to tell a transport stream from a file of sections.
constexpr std::size_t kProbeBytes = 64 * 1024;

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Decodes the PSI/SI tables of an ISDB-T / ISDB-Tb transport stream with libVuroISDBTUtils "
                 "and prints them as an indented tree (or JSON lines), followed by a summary per PID and table_id.",
                 "isdbt-dump"};
    app.footer("Transport streams of 188-, 192- (timestamped) and 204-byte packets are recognised from their sync "
               "bytes. Tables are routed as a receiver does: PAT on PID 0x0000, the PMT PIDs it announces, NIT on the "
               "network PID (0x0010 when none), SDT on 0x0011, EIT on 0x0012/0x0026/0x0027, TOT on 0x0014, SDTT on "
               "0x0023/0x0028, AIT and DSM-CC on the PIDs the PMTs announce. Sections with a wrong CRC_32 are counted, "
               "not parsed. A table whose version did not change is counted as unchanged, not printed again.\n\n"
               "Exit status: 0 on success, 1 when the input cannot be read or is not a transport stream (or a file of "
               "sections), 2 when it ends inside a packet or section (what came before is still printed).");

    std::string input;
    DumpOptions options;
    bool sections = false;
    bool noProgress = false;
    bool timing = false;
    std::size_t packetSize = 0;
    std::vector<std::string> pidArguments;
    std::vector<std::string> tableArguments;
    bool epg = false;
    std::string xmltvPath;
    std::string charsetName = "auto";

    app.add_option("input", input, "Transport stream file, or - for standard input")->required();
    app.add_flag("--sections", sections,
                 "The input is a file of sections placed back to back, each from its table_id (recognised without "
                 "this flag when the input is not a transport stream)");
    app.add_flag("--all-pids", options.allPids,
                 "Also decode sections on PIDs no table announces, with the class for their table_id (they are "
                 "counted as unannounced otherwise)");
    app.add_option("--tz", options.timeZone,
                   "Time zone of the TOT time: JST or UTC (by default JST on Japanese networks, UTC otherwise, from "
                   "the original_network_id seen)")
        ->check(CLI::IsMember({"JST", "UTC"}));
    app.add_flag("--json", options.json, "Write one JSON object per table per line (the summary is the last line)");
    app.add_flag("-a,--all", options.all,
                 "Print every section: no previous table is handed to the parser, so unchanged versions print again");
    app.add_option("-p,--pid", pidArguments, "Print only this PID (decimal or 0x hex; repeatable)");
    app.add_option("-t,--table", tableArguments,
                   "Print only this table: a table_id (decimal or 0x hex) or a name: PAT, CAT, PMT, NIT, SDT, BAT, EIT, "
                   "TDT, TOT, AIT, SDTT, BIT, CDT, DSMCC (repeatable)");
    app.add_flag("-v,--verbose", options.verbose,
                 "Show the library's log lines under the section that caused them (they are counted otherwise)");
    app.add_flag("-s,--summary-only", options.summaryOnly, "Print no tables, only the summary");
    app.add_flag("--no-summary", [&options](std::int64_t) { options.summary = false; }, "Leave out the closing summary");
    app.add_option("--packet-size", packetSize, "Packet size to assume instead of detecting it")
        ->check(CLI::IsMember({188, 192, 204}));
    app.add_flag("--no-progress", noProgress, "No progress line on stderr (shown only when stderr is a terminal)");
    app.add_flag("--timing", timing, "Report the time taken and the throughput on stderr");
    app.add_flag("--epg", epg,
                 "Print the programme guide instead of the tables: per service (named from the SDT) the present and "
                 "following events and the schedule in time order");
    app.add_option("--xmltv", xmltvPath, "Write the programme guide to this file as XMLTV");
    app.add_option("--charset", charsetName,
                   "Coding of broadcast texts: auto (ARIB STD-B24 for Japanese streams, else ISO 8859-15), latin9, "
                   "arib or raw (bytes escaped)")
        ->check(CLI::IsMember({"auto", "latin9", "arib", "raw"}));
    CLI11_PARSE(app, argc, argv);

    Charset charset = Charset::AUTO;
    charsetFromName(charsetName, charset);
    setCharset(charset);
    Guide guide;
    Guide::setActive(&guide);
    if (epg) {
        options.summaryOnly = true;
        options.summary = false;
    }

    for (const std::string& argument : pidArguments) {
        std::uint16_t pid = 0;
        if (!parsePid(argument, pid)) {
            std::fprintf(stderr, "isdbt-dump: --pid %s: not a PID (0 to 0x1FFF)\n", argument.c_str());
            return EXIT_BAD_INPUT;
        }
        options.pids.insert(pid);
    }
    for (const std::string& argument : tableArguments) {
        const std::vector<std::uint8_t> ids = tableIdsFor(argument);
        if (ids.empty()) {
            std::fprintf(stderr, "isdbt-dump: --table %s: not a table_id or table name\n", argument.c_str());
            return EXIT_BAD_INPUT;
        }
        options.tableIds.insert(ids.begin(), ids.end());
    }

    int fd = STDIN_FILENO;
    if (input != "-") {
        fd = ::open(input.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return fail(input, std::strerror(errno));
    }
    struct stat info {};
    if (::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode))
        return fail(input, "is a directory");
    const std::uint64_t total = S_ISREG(info.st_mode) ? static_cast<std::uint64_t>(info.st_size) : 0;

    const auto start = std::chrono::steady_clock::now();
    std::uint64_t bytes = 0;
    int status = 0;
    {
        Dumper dumper(options, stdout);
        // The start of the input tells what it is: a transport stream when
        // sync bytes repeat, else a file of sections when it reads as one.
        std::vector<std::uint8_t> data;
        std::string error;
        if (!readAll(fd, data, error, sections ? SIZE_MAX : kProbeBytes))
            return fail(input, error);
        const bool complete = data.size() < kProbeBytes;
        if (!sections && packetSize == 0 && detectPacketFormat(data.data(), data.size()).unitSize == 0 &&
            looksLikeSections(data.data(), data.size(), complete)) {
            sections = true;
            if (!complete && !readAll(fd, data, error))
                return fail(input, error);
        }
        if (sections) {
            bytes = data.size();
            if (data.empty())
                return fail(input, "the input is empty");
            if (!dumper.readSections(data.data(), data.size(), error)) {
                std::fprintf(stderr, "isdbt-dump: %s: %s\n", input.c_str(), error.c_str());
                status = EXIT_TRUNCATED;
            }
            dumper.writeSummary(nullptr, nullptr);
        } else {
            SectionDemux demux(dumper);
            dumper.attach(demux);
            TsReader reader(fd, packetSize);
            reader.prime(data.data(), data.size());
            bool ok;
            {
                Progress progress(!noProgress, total);
                ok = reader.run(demux, [&progress](std::uint64_t read) { progress(read); });
            }
            if (!ok)
                return fail(input, reader.error());
            bytes = reader.report().bytes;
            if (reader.report().trailingBytes) {
                std::fprintf(stderr, "isdbt-dump: %s: truncated: the input ends %llu bytes into a packet\n",
                             input.c_str(), static_cast<unsigned long long>(reader.report().trailingBytes));
                status = EXIT_TRUNCATED;
            }
            dumper.writeSummary(&reader.report(), &demux);
        }
    }
    if (fd != STDIN_FILENO)
        ::close(fd);
    if (epg)
        guide.writeText(stdout);
    if (!xmltvPath.empty()) {
        std::string error;
        if (!guide.writeXmltv(xmltvPath, error)) {
            std::fprintf(stderr, "isdbt-dump: --xmltv %s\n", error.c_str());
            status = EXIT_BAD_INPUT;
        }
    }
    Guide::setActive(nullptr);
    std::fflush(stdout);
    if (timing) {
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        std::fprintf(stderr, "isdbt-dump: %llu bytes in %.3f s: %.0f MB/s\n", static_cast<unsigned long long>(bytes),
                     seconds, seconds > 0 ? bytes / seconds / 1e6 : 0.0);
    }
    return status;
}
