// Real captures from the shared corpus, when it is present beside the
// project: every section is parsed, found unchanged, refused with a code,
// counted as not decoded or as unannounced, and the counts match the sections
// in the files; every JSON line matches the documented schema; and the cases
// a receiver engineer checks by hand show what the bytes carry.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "Dumper.h"
#include "JsonSchemaCheck.h"
#include "Names.h"

using namespace VuroTools;

namespace {

std::string corpusDir()
{
    if (const char* dir = std::getenv("VURO_CORPUS_DIR"))
        return dir;
    for (const char* relative : {"/../shared/corpus", "/../../shared/corpus"}) {
        struct stat info {};
        const std::string dir = PROJECT_ROOT + std::string(relative);
        if (::stat(dir.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
            return dir;
    }
    return {};
}

// Sections in each file, as the corpus notes count them (the 0xD8 section of
// test-181 sits in packets with transport_error_indicator set).
const std::map<std::string, std::uint64_t> kSections = {
    {"EPG_new/TestPacket_EIT.ts", 263},
    {"EPG_new/TestPacket_1000P.ts", 14},
    {"EPG_new/TestPacket_SDT.ts", 32},
    {"EPG_new/sections.bin", 11},
    {"ariblib/tokyomx-pat-pmt-nit-sdt.ts", 4},
    {"nak1114-ariblib/test_aa.ts", 1},
    {"sedec-2.0-java/pat_dump_0.bin", 1},
    {"sedec-2.0-java/cat_dump_0.bin", 1},
    {"sedec-2.0-java/pmt_dump_0.bin", 1},
    {"tsduck/japanese-tables.bin", 2},
    {"tsduck-test/test-062.tstables.bin", 12},
    {"tsduck-test/test-165.tstables.bin", 10},
    {"tsduck-test/test-170.tstables.bin", 8},
    {"tsduck-test/test-171.11.ts", 4},
    {"tsduck-test/test-171.1.ts", 0},
    {"tsduck-test/test-101.ts", 8},
    {"tsduck-test/test-181.ts", 1},
    {"tsduck-test/test-186.1.ts", 30},
    {"tsduck-test/test-186.2.ts", 284},
    {"tsduck-test/test-208.1.ts", 1},
    {"tsduck-test/test-208.2.ts", 1},
};

// Independent count of a file of back-to-back sections.
std::uint64_t countSections(const std::string& data)
{
    std::uint64_t count = 0;
    for (std::size_t at = 0; at + 3 <= data.size(); ++count)
        at += 3 + (((static_cast<unsigned char>(data[at + 1]) & 0x0F) << 8) | static_cast<unsigned char>(data[at + 2]));
    return count;
}

// Event information sections (0x4E-0x6F) parsed and refused, over every file.
struct EventCounts {
    std::uint64_t parsed = 0;
    std::uint64_t refused = 0;
};

// Every event information section is parsed, except those whose events carry
// a descriptor outside the thirteen tags an event takes: the refusal is the
// table's 2568 and, in the corpus, comes only from the BS schedule sections
// (0x61) with CA contract information (0xCB).
void countEvents(const Dumper& dumper, const std::string& name, EventCounts& events)
{
    for (const auto& entry : dumper.counts()) {
        const unsigned tableId = entry.first & 0xFF;
        if (tableId < 0x4E || tableId > 0x6F)
            continue;
        const TableCounts& c = entry.second;
        events.parsed += c.parsed;
        events.refused += c.refusedTotal();
        EXPECT_EQ(c.parsed + c.refusedTotal(), c.seen) << name;
        for (const auto& refusal : c.refused) {
            EXPECT_EQ(tableId, 0x61u) << name;
            EXPECT_EQ(refusal.first, Vuro::TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH) << name;
        }
    }
}

void checkCounts(const Dumper& dumper, const std::string& name, bool freshParses)
{
    std::uint64_t seen = 0;
    for (const auto& entry : dumper.counts()) {
        const TableCounts& c = entry.second;
        seen += c.seen;
        EXPECT_EQ(c.parsed + c.unchanged + c.refusedTotal() + c.crcErrors + c.notDecoded + c.unannounced, c.seen)
            << name;
        EXPECT_EQ(c.crcErrors, 0u) << name; // every section of the corpus has a correct CRC_32
        for (const auto& refusal : c.refused)
            EXPECT_TRUE(!freshParses || errorCodeName(refusal.first)) << name << " code " << refusal.first;
    }
    EXPECT_EQ(seen, dumper.sections()) << name;
    EXPECT_EQ(seen, kSections.at(name)) << name;
}

TEST(CorpusTest, EverySectionIsAccountedFor)
{
    const std::string dir = corpusDir();
    if (dir.empty())
        GTEST_SKIP() << "no corpus beside the project (set VURO_CORPUS_DIR)";
    std::size_t files = 0;
    EventCounts events;
    for (const auto& entry : kSections) {
        const std::string path = dir + "/" + entry.first;
        std::ifstream in(path, std::ios::binary);
        if (!in)
            continue;
        ++files;
        std::ostringstream bytes;
        bytes << in.rdbuf();
        std::string data = bytes.str();
        const bool sections = path.size() > 4 && path.compare(path.size() - 4, 4, ".bin") == 0;
        for (bool all : {false, true}) {
            std::FILE* out = std::fopen("/dev/null", "w");
            DumpOptions options;
            options.all = all;
            options.verbose = true;
            Dumper dumper(options, out);
            if (sections) {
                EXPECT_EQ(countSections(data), entry.second) << entry.first;
                std::string error;
                EXPECT_TRUE(dumper.readSections(reinterpret_cast<std::uint8_t*>(&data[0]), data.size(), error))
                    << entry.first << ": " << error;
                dumper.writeSummary(nullptr, nullptr);
            } else {
                const int fd = ::open(path.c_str(), O_RDONLY);
                ASSERT_GE(fd, 0);
                SectionDemux demux(dumper);
                dumper.attach(demux);
                TsReader reader(fd);
                EXPECT_TRUE(reader.run(demux)) << entry.first << ": " << reader.error();
                EXPECT_EQ(reader.report().trailingBytes, 0u);
                EXPECT_EQ(reader.report().syncLosses, 0u);
                dumper.writeSummary(&reader.report(), &demux);
                ::close(fd);
            }
            checkCounts(dumper, entry.first, all);
            if (all)
                countEvents(dumper, entry.first, events);
            std::fclose(out);
        }
    }
    EXPECT_GT(files, 0u);
    if (files == kSections.size()) {
        EXPECT_EQ(events.refused, 3u);
        EXPECT_GE(events.parsed, 263u);
    }
}

// The dump program's output on a corpus file.
std::string dumpOf(const std::string& arguments)
{
    std::string out;
    std::FILE* pipe = popen((std::string(ISDBT_DUMP) + " --no-progress " + arguments + " 2>&1").c_str(), "r");
    if (!pipe)
        return out;
    char buffer[4096];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        out.append(buffer, got);
    pclose(pipe);
    return out;
}

TEST(CorpusTest, EveryJsonLineMatchesTheSchema)
{
    const std::string dir = corpusDir();
    if (dir.empty())
        GTEST_SKIP() << "no corpus beside the project (set VURO_CORPUS_DIR)";
    const VuroTest::JsonSchemaCheck schema(std::string(PROJECT_ROOT) + "/docs/isdbt-dump.schema.json");
    for (const auto& entry : kSections) {
        const std::string path = dir + "/" + entry.first;
        if (::access(path.c_str(), R_OK) != 0)
            continue;
        std::istringstream lines(dumpOf("--json --all --verbose --all-pids " + path));
        std::string line;
        std::size_t count = 0;
        while (std::getline(lines, line)) {
            ++count;
            ASSERT_TRUE(nlohmann::json::accept(line)) << entry.first << ": " << line;
            EXPECT_EQ(schema.check(nlohmann::json::parse(line)), "") << entry.first;
        }
        EXPECT_GT(count, 0u) << entry.first;
    }
}

TEST(CorpusTest, TheCapturesShowWhatTheirBytesCarry)
{
    const std::string dir = corpusDir() + "/";
    if (dir == "/")
        GTEST_SKIP() << "no corpus beside the project (set VURO_CORPUS_DIR)";
    auto has = [](const std::string& out, const std::string& text) { return out.find(text) != std::string::npos; };
    auto present = [&dir](const char* name) { return ::access((dir + name).c_str(), R_OK) == 0; };

    // Both one-seg and full-seg ids of the Brazilian service list.
    if (present("tsduck-test/test-170.tstables.bin")) {
        EXPECT_TRUE(has(dumpOf("--table NIT " + dir + "tsduck-test/test-170.tstables.bin"),
                        "service_id: 0x7C  [wire: 0x5C38, 0x5C20]"));
    }
    // The SIT PID nothing announces: its PID and all 30 sections.
    if (present("tsduck-test/test-186.1.ts")) {
        const std::string out = dumpOf("-s " + dir + "tsduck-test/test-186.1.ts");
        EXPECT_TRUE(has(out, "  0x001F  0x7F SIT                         30 ")) << out;
        EXPECT_TRUE(has(out, "sections: 0x7F SIT x 30 (not announced)")) << out;
    }
    // All 16 PIDs of the BS capture, announced or not.
    if (present("EPG_new/TestPacket_1000P.ts")) {
        const std::string out = dumpOf("-s --json " + dir + "EPG_new/TestPacket_1000P.ts");
        EXPECT_EQ(nlohmann::json::parse(out).at("summary").at("pids").size(), 16u);
    }
    // Two SDTs of different transport streams on PID 0x11 with one version.
    if (present("EPG_new/TestPacket_SDT.ts")) {
        std::istringstream lines(dumpOf("--json --table SDT --no-summary " + dir + "EPG_new/TestPacket_SDT.ts"));
        std::set<int> streams;
        for (std::string line; std::getline(lines, line);)
            streams.insert(nlohmann::json::parse(line).at("transport_stream_id").get<int>());
        EXPECT_EQ(streams.size(), 2u);
    }
    // The one-seg PMT that completes before the PAT.
    if (present("tsduck-test/test-171.11.ts")) {
        EXPECT_TRUE(has(dumpOf("--pid 0x1FC8 " + dir + "tsduck-test/test-171.11.ts"), "PMT on PID 0x1FC8"));
    }
    // Japanese time in the TOT; the BS NIT's satellite delivery descriptors.
    if (present("tsduck/japanese-tables.bin")) {
        EXPECT_TRUE(has(dumpOf(dir + "tsduck/japanese-tables.bin"), " JST\n"));
    }
    if (present("EPG_new/sections.bin")) {
        const std::string out = dumpOf(dir + "EPG_new/sections.bin");
        std::size_t count = 0;
        for (std::size_t at = out.find("descriptor 0x43 satellite delivery system in transport stream");
             at != std::string::npos; at = out.find("descriptor 0x43 satellite delivery system in", at + 1))
            ++count;
        EXPECT_EQ(count, 28u);
    }
    if (present("ariblib/tokyomx-pat-pmt-nit-sdt.ts")) {
        EXPECT_TRUE(has(dumpOf(dir + "ariblib/tokyomx-pat-pmt-nit-sdt.ts"),
                        "video_encode_format: 0x0 (1080p)  [wire: 0x4 (480i)]"));
    }
    if (present("tsduck-test/test-101.ts")) {
        EXPECT_TRUE(has(dumpOf(dir + "tsduck-test/test-101.ts"), "encryption_mode: no  [wire: yes]"));
    }
    if (present("tsduck-test/test-181.ts")) {
        EXPECT_TRUE(has(dumpOf("--pid 0x24 --table BIT " + dir + "tsduck-test/test-181.ts"),
                        "BIT on PID 0x0024, table_id 0xC4, 87 bytes: on a PID no table announces"));
    }
}

} // namespace
