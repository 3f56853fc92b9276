// The isdbt-dump program on the bundled sample stream and on bad input.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

#include <nlohmann/json.hpp>

#include "JsonSchemaCheck.h"
#include "SectionBuilder.h"
#include "TextCharset.h"

namespace {

struct Outcome {
    int status;
    std::string out;
};

// Runs a command through the shell; stdout captured, stderr appended.
Outcome run(const std::string& command)
{
    Outcome result{-1, {}};
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe)
        return result;
    char buffer[4096];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
        result.out.append(buffer, got);
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

Outcome dump(const std::string& arguments) { return run(std::string(ISDBT_DUMP) + " --no-progress " + arguments); }
Outcome dumpSample(const std::string& options = "") { return dump(options + " " + ISDBT_SAMPLE); }

std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The tables part of a dump (everything before the summary).
std::string tablesOf(const std::string& out) { return out.substr(0, out.find("\nSummary\n")); }

TEST(DumpTest, SampleMatchesTheExpectedDumpAlsoIn192And204BytePackets)
{
    const Outcome result = dumpSample();
    ASSERT_EQ(result.status, 0) << result.out;
    const std::string expectedPath = std::string(EXPECTED_DIR) + "/isdbt-sample.txt";
    if (std::getenv("VURO_UPDATE_EXPECTED")) {
        std::ofstream(expectedPath, std::ios::binary) << result.out;
        GTEST_SKIP() << "wrote " << expectedPath;
    }
    EXPECT_EQ(result.out, readFile(expectedPath));
    for (const char* size : {"192", "204"}) {
        const std::string path = ::testing::TempDir() + "isdbt-sample-" + size + ".ts";
        ASSERT_EQ(run(std::string(MAKE_SAMPLE) + " " + path + " --packet-size " + size).status, 0);
        const Outcome framed = dump(path);
        ASSERT_EQ(framed.status, 0) << framed.out;
        EXPECT_EQ(tablesOf(framed.out), tablesOf(result.out)) << size;
        EXPECT_NE(framed.out.find(std::string("packets of ") + size + " bytes"), std::string::npos);
        std::remove(path.c_str());
    }
}

// The schema checker the JSON tests rely on refuses what the patterns
// exclude, and matches a byte block of a whole section (thousands of
// characters) without running out of stack.
TEST(DumpTest, SchemaCheckerRefusesBadPatternsAndCopesWithLongBlocks)
{
    const std::string path = ::testing::TempDir() + "bytes.schema.json";
    std::ofstream(path) << R"({"type": "object", "properties": {"data": {"type": "string",
                             "pattern": "^([0-9A-F]{2}( [0-9A-F]{2})*)?$"}}})";
    const VuroTest::JsonSchemaCheck schema(path);
    std::string block = "47";
    for (int i = 0; i < 4095; ++i)
        block += " 1F";
    for (const std::string& good : {std::string(), std::string("00 1F FF"), block})
        EXPECT_EQ(schema.check({{"data", good}}), "") << good.size();
    for (const std::string& bad : {std::string("00 1f"), std::string("00 1"), std::string("001F"), block + " "})
        EXPECT_NE(schema.check({{"data", bad}}), "") << bad.substr(0, 10);
    std::remove(path.c_str());
}

TEST(DumpTest, JsonLinesAreWellFormedAndTheSummaryCountsEverySection)
{
    const Outcome result = dumpSample("--json --all --verbose");
    ASSERT_EQ(result.status, 0) << result.out;
    const VuroTest::JsonSchemaCheck schema(std::string(PROJECT_ROOT) + "/docs/isdbt-dump.schema.json");
    std::istringstream lines(result.out);
    std::string line;
    std::vector<nlohmann::json> records;
    while (std::getline(lines, line)) {
        ASSERT_TRUE(nlohmann::json::accept(line)) << line;
        records.push_back(nlohmann::json::parse(line));
        EXPECT_EQ(schema.check(records.back()), "") << line;
    }
    ASSERT_GE(records.size(), 2u);
    const nlohmann::json& summary = records.back().at("summary");
    std::uint64_t seen = 0, accounted = 0, parsed = 0;
    for (const auto& row : summary.at("tables")) {
        seen += row.at("seen").get<std::uint64_t>();
        parsed += row.at("parsed").get<std::uint64_t>();
        accounted += row.at("parsed").get<std::uint64_t>() + row.at("unchanged").get<std::uint64_t>() +
                     row.at("refused").get<std::uint64_t>() + row.at("crc_errors").get<std::uint64_t>() +
                     row.at("not_decoded").get<std::uint64_t>() + row.at("unannounced").get<std::uint64_t>();
    }
    EXPECT_EQ(seen, summary.at("sections").get<std::uint64_t>());
    EXPECT_EQ(accounted, seen);
    // With --all every decoded section is printed: one record each.
    EXPECT_EQ(records.size() - 1, parsed);
    EXPECT_EQ(records.front().at("table"), "PAT");
    EXPECT_EQ(records.front().at("pid"), 0);
    EXPECT_EQ(records.front().at("programs").size(), 2u);
}

TEST(DumpTest, AFileOfSectionsIsRecognisedWithoutTheFlag)
{
    const VuroTest::Bytes pat =
        VuroTest::SectionBuilder(0x00).longHeader(0x0640, 1).u16(0x0000).u16(0xE010).u16(0xE580).u16(0xE1F0).build();
    const VuroTest::Bytes file = VuroTest::concat({pat, {0xFF}, pat});
    const std::string path = ::testing::TempDir() + "sections.bin";
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(file.data()),
                                                static_cast<std::streamsize>(file.size()));
    const VuroTest::JsonSchemaCheck schema(std::string(PROJECT_ROOT) + "/docs/isdbt-dump.schema.json");
    for (const std::string& input : {path, "- < " + path}) {
        const Outcome result = dump("--json " + input);
        ASSERT_EQ(result.status, 0) << result.out;
        std::istringstream lines(result.out);
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        const nlohmann::json record = nlohmann::json::parse(line);
        EXPECT_TRUE(record.at("pid").is_null());
        EXPECT_EQ(record.at("table"), "PAT");
        EXPECT_EQ(schema.check(record), "");
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_EQ(nlohmann::json::parse(line).at("summary").at("tables").at(0).at("unchanged"), 1);
    }
    std::remove(path.c_str());
}

TEST(DumpTest, FiltersSelectPidsAndTables)
{
    Outcome result = dumpSample("--table PMT");
    ASSERT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find("PAT on PID"), std::string::npos);
    result = dumpSample("--pid 0 --all --no-summary");
    ASSERT_EQ(result.status, 0);
    std::size_t count = 0;
    for (std::size_t at = result.out.find("PAT on PID"); at != std::string::npos; at = result.out.find("PAT on PID", at + 1))
        ++count;
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(result.out.find("Summary"), std::string::npos);
    EXPECT_NE(dumpSample("--pid 0x2000").status, 0);
    EXPECT_NE(dumpSample("--table XYZ").status, 0);
}

TEST(DumpTest, BadInputGetsAMessageAndANonZeroExit)
{
    // A capture cut inside its last packet: the rest is decoded, the exit
    // status says so; a file of sections that ends inside a section.
    const std::string sample = readFile(ISDBT_SAMPLE);
    const std::string text = ::testing::TempDir() + "not-a-stream.ts", cut = ::testing::TempDir() + "cut.ts",
                      sections = ::testing::TempDir() + "cut.bin";
    std::ofstream(text) << std::string(4000, 'x');
    std::ofstream(cut, std::ios::binary) << sample.substr(0, sample.size() - 50);
    std::ofstream(sections, std::ios::binary) << std::string("\x00\xB0\x15\x06\x40", 5);
    const struct {
        std::string arguments;
        int status;
        std::vector<const char*> messages;
    } cases[] = {
        {"/nonexistent/capture.ts", 1, {"No such file"}},
        {text, 1, {"not a transport stream"}},
        {cut, 2, {"truncated", "PAT on PID"}},
        {"- < " + cut, 2, {"truncated", "PAT on PID"}}, // through standard input
        {"--sections " + sections, 2, {"truncated section"}},
    };
    for (const auto& c : cases) {
        const Outcome result = dump(c.arguments);
        EXPECT_EQ(result.status, c.status) << c.arguments;
        for (const char* message : c.messages)
            EXPECT_NE(result.out.find(message), std::string::npos) << c.arguments << ": " << result.out;
    }
    for (const std::string& path : {text, cut, sections})
        std::remove(path.c_str());
}

TEST(DumpTest, HelpListsEveryOption)
{
    const Outcome result = dump("--help");
    EXPECT_EQ(result.status, 0);
    for (const char* option : {"--sections", "--json", "--all", "--pid", "--table", "--verbose", "--summary-only",
                               "--packet-size", "--timing", "--all-pids", "--tz", "Exit status"})
        EXPECT_NE(result.out.find(option), std::string::npos) << option;
}

} // namespace

TEST(DumpTest, ProgrammeGuideAndXmltvOfTheSample)
{
    const Outcome guide = dumpSample("--epg");
    ASSERT_EQ(guide.status, 0) << guide.out;
    // Services named from the SDT, times in local time once the TOT is seen,
    // ISO 8859-15 texts (the euro sign is 0xA4), schedule in time order.
    for (const char* line :
         {"Programme guide\n  service 0xE580 \"Vuro HD Not\xC3\xAD" "cias\", transport_stream_id 0x0640, "
          "original_network_id 0x0640\n"
          "    present:   2024-08-02 12:00:00 -03:00  01:00:00  \"Jornal do Meio-Dia\" (event 0x0101, news, rated L)\n",
          "    following: 2024-08-02 13:00:00 -03:00  02:00:00  \"Futebol: Final\" (event 0x0102, sports, rated 10)\n"
          "                 Ingressos a partir de 20 \xE2\x82\xAC\n",
          "        Ingressos a partir de 20 \xE2\x82\xAC\n"
          "      2024-08-02 15:30:00 -03:00  00:45:00  \"Novela das Seis\" (event 0x0103, soap opera, rated 12)\n",
          "  service 0xE598 \"Vuro 1seg\"", "(event 0x0202, children, rated L)\n"})
        EXPECT_NE(guide.out.find(line), std::string::npos) << line << "\n" << guide.out;
    EXPECT_EQ(guide.out.find("Summary"), std::string::npos);

    const std::string path = ::testing::TempDir() + "isdbt-sample.xml";
    ASSERT_EQ(dumpSample("-s --xmltv " + path).status, 0);
    const std::string xml = readFile(path);
    EXPECT_NE(xml.find("<programme start=\"20240802130000 -0300\" stop=\"20240802150000 -0300\" "
                       "channel=\"e580.0640.0640.isdbt\">\n    <title lang=\"pt\">Futebol: Final</title>\n"),
              std::string::npos)
        << xml;
    const char* dtd = "/usr/share/xmltv/xmltv.dtd";
    if (std::ifstream(dtd) && run("xmllint --version").status == 0) {
        const Outcome valid = run(std::string("xmllint --noout --dtdvalid ") + dtd + " " + path);
        EXPECT_EQ(valid.status, 0) << valid.out;
    }
    std::remove(path.c_str());
    EXPECT_NE(dumpSample("--xmltv /nonexistent/dir/guide.xml").status, 0);
    EXPECT_NE(dumpSample("--charset ebcdic").status, 0);
}

TEST(DumpTest, BroadcastTextCodings)
{
    using VuroTools::Charset;
    using VuroTools::broadcastText;
    // "Not\xEDcias 20 \xA4": ISO 8859-15 has the euro sign where Latin-1 has the currency sign.
    const std::string brazilian = "Not\xED" "cias 20 \xA4\\";
    EXPECT_EQ(broadcastText(brazilian, Charset::LATIN9), "Not\xC3\xAD" "cias 20 \xE2\x82\xAC\\\\");
    EXPECT_EQ(broadcastText(brazilian, Charset::RAW), "Not\\xEDcias 20 \\xA4\\\\");
    // Kanji in the default G0 set: "\u65E5\u672C" (JIS 0x467C 0x4B5C).
    const std::string japanese = "\x46\x7C\x4B\x5C";
    // Built without libaribb24 (some cross targets), ARIB text stays raw bytes.
    const std::string kanji = VuroTools::aribDecoding() ? "\xE6\x97\xA5\xE6\x9C\xAC" : "F|K\\\\";
    EXPECT_EQ(broadcastText(japanese, Charset::ARIB), kanji);
    // Auto: ARIB only for ARIB control codes or a Japanese stream; language
    // codes stay letters.
    EXPECT_EQ(broadcastText(brazilian, Charset::AUTO), broadcastText(brazilian, Charset::LATIN9));
    EXPECT_EQ(broadcastText(japanese, Charset::AUTO), "F|K\\\\");
    VuroTools::setJapaneseStream(true);
    EXPECT_EQ(broadcastText(japanese, Charset::AUTO), kanji);
    EXPECT_EQ(broadcastText("jpn", Charset::AUTO), "jpn");
    VuroTools::setJapaneseStream(false);
    // Whatever the bytes, every coding yields valid UTF-8 (JSON output needs it).
    for (unsigned first = 0; first < 256; ++first)
        for (unsigned second = 0; second < 256; second += 5) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second), '\x1B', '\x24',
                                    static_cast<char>(second ^ first)};
            for (Charset charset : {Charset::AUTO, Charset::LATIN9, Charset::ARIB, Charset::RAW})
                EXPECT_NO_THROW(nlohmann::json(broadcastText(bytes, charset)).dump()) << first << " " << second;
        }
    EXPECT_TRUE(VuroTools::isJapaneseNetwork(0x7FE1));
    EXPECT_FALSE(VuroTools::isJapaneseNetwork(0x02E1));
}
