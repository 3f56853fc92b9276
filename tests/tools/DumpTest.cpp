// The isdbt-dump program on the bundled sample stream and on bad input.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

#include <nlohmann/json.hpp>

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

std::string dump(const std::string& arguments) { return std::string(ISDBT_DUMP) + " --no-progress " + arguments; }

std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The tables part of a dump (everything before the summary).
std::string tablesOf(const std::string& out) { return out.substr(0, out.find("\nSummary\n")); }

TEST(DumpTest, SampleMatchesTheExpectedDump)
{
    const Outcome result = run(dump(ISDBT_SAMPLE));
    ASSERT_EQ(result.status, 0) << result.out;
    const std::string expectedPath = std::string(EXPECTED_DIR) + "/isdbt-sample.txt";
    if (std::getenv("VURO_UPDATE_EXPECTED")) {
        std::ofstream(expectedPath, std::ios::binary) << result.out;
        GTEST_SKIP() << "wrote " << expectedPath;
    }
    EXPECT_EQ(result.out, readFile(expectedPath));
}

TEST(DumpTest, SamplePrintsTheSameTablesIn192And204BytePackets)
{
    const std::string reference = tablesOf(run(dump(ISDBT_SAMPLE)).out);
    for (const char* size : {"192", "204"}) {
        const std::string path = ::testing::TempDir() + "isdbt-sample-" + size + ".ts";
        ASSERT_EQ(run(std::string(MAKE_SAMPLE) + " " + path + " --packet-size " + size).status, 0);
        const Outcome result = run(dump(path));
        ASSERT_EQ(result.status, 0) << result.out;
        EXPECT_EQ(tablesOf(result.out), reference) << size;
        EXPECT_NE(result.out.find(std::string("packets of ") + size + " bytes"), std::string::npos);
        std::remove(path.c_str());
    }
}

TEST(DumpTest, JsonLinesAreWellFormedAndTheSummaryCountsEverySection)
{
    const Outcome result = run(dump(std::string("--json --all ") + ISDBT_SAMPLE));
    ASSERT_EQ(result.status, 0) << result.out;
    std::istringstream lines(result.out);
    std::string line;
    std::vector<nlohmann::json> records;
    while (std::getline(lines, line)) {
        ASSERT_TRUE(nlohmann::json::accept(line)) << line;
        records.push_back(nlohmann::json::parse(line));
    }
    ASSERT_GE(records.size(), 2u);
    const nlohmann::json& summary = records.back().at("summary");
    std::uint64_t seen = 0, accounted = 0, parsed = 0;
    for (const auto& row : summary.at("tables")) {
        seen += row.at("seen").get<std::uint64_t>();
        parsed += row.at("parsed").get<std::uint64_t>();
        accounted += row.at("parsed").get<std::uint64_t>() + row.at("unchanged").get<std::uint64_t>() +
                     row.at("refused").get<std::uint64_t>() + row.at("crc_errors").get<std::uint64_t>() +
                     row.at("not_decoded").get<std::uint64_t>();
    }
    EXPECT_EQ(seen, summary.at("sections").get<std::uint64_t>());
    EXPECT_EQ(accounted, seen);
    // With --all every decoded section is printed: one record each.
    EXPECT_EQ(records.size() - 1, parsed);
    EXPECT_EQ(records.front().at("table"), "PAT");
    EXPECT_EQ(records.front().at("pid"), 0);
    EXPECT_EQ(records.front().at("programs").size(), 2u);
}

TEST(DumpTest, FiltersSelectPidsAndTables)
{
    Outcome result = run(dump(std::string("--table PMT ") + ISDBT_SAMPLE));
    ASSERT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find("PAT on PID"), std::string::npos);
    result = run(dump(std::string("--pid 0 --all --no-summary ") + ISDBT_SAMPLE));
    ASSERT_EQ(result.status, 0);
    std::size_t count = 0;
    for (std::size_t at = result.out.find("PAT on PID"); at != std::string::npos; at = result.out.find("PAT on PID", at + 1))
        ++count;
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(result.out.find("Summary"), std::string::npos);
    EXPECT_NE(run(dump(std::string("--pid 0x2000 ") + ISDBT_SAMPLE)).status, 0);
    EXPECT_NE(run(dump(std::string("--table XYZ ") + ISDBT_SAMPLE)).status, 0);
}

TEST(DumpTest, BadInputGetsAMessageAndANonZeroExit)
{
    Outcome result = run(dump("/nonexistent/capture.ts"));
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("No such file"), std::string::npos) << result.out;

    const std::string text = ::testing::TempDir() + "not-a-stream.ts";
    std::ofstream(text) << std::string(4000, 'x');
    result = run(dump(text));
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("not a transport stream"), std::string::npos) << result.out;

    // A capture cut inside its last packet: the rest is decoded, the exit status says so.
    const std::string sample = readFile(ISDBT_SAMPLE);
    const std::string cut = ::testing::TempDir() + "cut.ts";
    std::ofstream(cut, std::ios::binary) << sample.substr(0, sample.size() - 50);
    result = run(dump(cut));
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.out.find("truncated"), std::string::npos);
    EXPECT_NE(result.out.find("PAT on PID"), std::string::npos);

    // The same through standard input.
    result = run(dump("- < " + cut));
    EXPECT_EQ(result.status, 2);

    // A file of sections that ends inside a section.
    std::ofstream(cut, std::ios::binary) << std::string("\x00\xB0\x15\x06\x40", 5);
    result = run(dump("--sections " + cut));
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.out.find("truncated section"), std::string::npos);
    std::remove(text.c_str());
    std::remove(cut.c_str());
}

TEST(DumpTest, HelpListsEveryOption)
{
    const Outcome result = run(dump("--help"));
    EXPECT_EQ(result.status, 0);
    for (const char* option : {"--sections", "--json", "--all", "--pid", "--table", "--verbose", "--summary-only",
                               "--packet-size", "--timing", "Exit status"})
        EXPECT_NE(result.out.find(option), std::string::npos) << option;
}

} // namespace
