// Every table class parsed from 8 threads at once: the threads share the
// section buffers and the `previous` tables, read the shared tables while
// they parse, and a further thread keeps redirecting the log sink. Under
// ThreadSanitizer (ctest -L tsan) this shows parsing is free of data races;
// everywhere it checks each thread gets what a single-threaded pass gets.
//
// The table classes are those the dump decodes (makeTableHandlers()), so a
// table added there is parsed here too; the sections are those the dump
// routes in the bundled sample and, when present, in the shared corpus.
#include <gtest/gtest.h>

#include <android/log_host.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "CorpusDir.h"
#include "Dumper.h"

using namespace Vuro;
using namespace VuroTools;

namespace {

constexpr int kParseThreads = 8;

struct Section {
    std::uint16_t pid;
    std::vector<U8> bytes;
};

// The sections the dump's routing hands to the table classes, PIDs
// announced by the PAT and the PMTs included.
class SectionCollector : public Dumper {
public:
    SectionCollector(std::vector<Section>& sections, std::FILE* out)
        : Dumper(quiet(), out), m_sections(sections)
    {
    }
    void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) override
    {
        m_sections.push_back({pid, std::vector<U8>(section, section + length)});
        Dumper::onSection(pid, section, length);
    }

private:
    static DumpOptions quiet()
    {
        DumpOptions options;
        options.summaryOnly = true;
        options.summary = false;
        return options;
    }
    std::vector<Section>& m_sections;
};

void collectStream(const std::string& path, std::vector<Section>& sections)
{
    std::FILE* out = std::fopen("/dev/null", "w");
    const int fd = ::open(path.c_str(), O_RDONLY);
    ASSERT_GE(fd, 0) << path;
    {
        SectionCollector collector(sections, out);
        SectionDemux demux(collector);
        collector.attach(demux);
        TsReader reader(fd);
        EXPECT_TRUE(reader.run(demux)) << path << ": " << reader.error();
    }
    ::close(fd);
    std::fclose(out);
}

// A file of back-to-back sections (0xFF stuffing between them).
void collectSections(const std::string& path, std::vector<Section>& sections)
{
    std::ifstream in(path, std::ios::binary);
    const std::vector<U8> data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    for (std::size_t at = 0; at + 3 <= data.size();) {
        if (data[at] == 0xFF) {
            ++at;
            continue;
        }
        const std::size_t length = std::min<std::size_t>(data.size() - at, 3 + (((data[at + 1] & 0x0Fu) << 8) | data[at + 2]));
        sections.push_back({Dumper::NO_PID, std::vector<U8>(data.begin() + at, data.begin() + at + length)});
        at += length;
    }
}

// One parse: a section, the class parsing it (its place in
// makeTableHandlers()) and the shared previous table it is handed (or null).
struct Job {
    Section* section;
    std::size_t handler;
    TISDBTTable* previous;
};

// The dump's handlers keep state of their own (the EIT's keeps the versions
// it has seen, as a receiver does), so every parse and print takes a fresh
// set: what the threads share is the library's input and tables alone.
std::unique_ptr<TableHandler> handlerAt(std::size_t index) { return std::move(makeTableHandlers()[index]); }

// What a parse gave: the error code and the printed table (empty if refused).
struct Outcome {
    U16 error;
    std::string table;
    bool operator==(const Outcome& other) const { return error == other.error && table == other.table; }
};

std::string printed(const TableHandler& handler, const TISDBTTable& table)
{
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* memory = open_memstream(&text, &size);
    {
        std::unique_ptr<TreeOut> out = makeTextOut(memory);
        out->beginRecord(handler.name());
        handler.print(table, *out);
        out->endRecord();
    }
    std::fclose(memory);
    std::string result(text, size);
    std::free(text);
    return result;
}

Outcome run(const Job& job)
{
    U16 error = 0xFFFF;
    Section& section = *job.section;
    const auto handler = handlerAt(job.handler);
    std::unique_ptr<TISDBTTable> table(
        handler->parse(section.bytes.data(), static_cast<U32>(section.bytes.size()), job.previous, &error));
    return {error, table ? printed(*handler, *table) : std::string()};
}

struct LineCounter {
    std::atomic<std::uint32_t> lines{0}; // 32 bits: lock-free on every target
    static void sink(int, const char*, const char*, void* context)
    {
        static_cast<LineCounter*>(context)->lines.fetch_add(1, std::memory_order_relaxed);
    }
};

TEST(ParseThreads, EveryTableFromEightThreadsWithSharedBuffersAndPreviousTables)
{
    std::vector<Section> sections;
    collectStream(ISDBT_SAMPLE, sections);
    const std::size_t sampleSections = sections.size();
    ASSERT_GT(sampleSections, 0u);
    const std::string corpus = VuroTest::corpusDir(PROJECT_ROOT);
    // Under an emulator (scripts/test-cross sets VURO_TEST_EMULATED) 8 threads
    // cost a hundred times more than natively, and the emulator runs the
    // guest on the host's memory model anyway: every 16th corpus section
    // joins the sample's there.
    const char* emulated = std::getenv("VURO_TEST_EMULATED");
    const std::size_t stride = emulated && *emulated ? 16 : 1;
    if (!corpus.empty()) {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(corpus))
            files.push_back(entry.path().string());
        std::sort(files.begin(), files.end());
        std::vector<Section> found;
        for (const std::string& file : files) {
            if (file.size() > 3 && file.compare(file.size() - 3, 3, ".ts") == 0)
                collectStream(file, found);
            else if (file.size() > 4 && file.compare(file.size() - 4, 4, ".bin") == 0)
                collectSections(file, found);
        }
        for (std::size_t i = 0; i < found.size(); i += stride)
            sections.push_back(std::move(found[i]));
    }

    // Single-threaded pass: every section through every class that takes its
    // table_id, fresh; the first table a class parses on a PID becomes the
    // `previous` every later parse of that class and PID is handed.
    LineCounter reference;
    android_log_host_set_sink(&LineCounter::sink, &reference);
    const auto handlers = makeTableHandlers();
    std::map<std::pair<std::uint16_t, std::size_t>, std::unique_ptr<TISDBTTable>> previous;
    std::vector<Job> jobs;
    std::map<std::size_t, std::size_t> parsedBy;
    for (Section& section : sections) {
        for (std::size_t h = 0; h < handlers.size(); ++h) {
            if (section.bytes.empty() || !handlers[h]->accepts(section.bytes[0]))
                continue;
            jobs.push_back({&section, h, nullptr});
            auto& shared = previous[{section.pid, h}];
            if (!shared) {
                U16 error = 0;
                shared.reset(handlerAt(h)->parse(section.bytes.data(), static_cast<U32>(section.bytes.size()), nullptr,
                                                 &error));
            }
            if (shared) {
                ++parsedBy[h];
                jobs.push_back({&section, h, shared.get()});
            }
        }
    }
    reference.lines = 0;
    std::vector<Outcome> expected;
    for (const Job& job : jobs)
        expected.push_back(run(job));
    const std::uint32_t linesPerPass = reference.lines;
    EXPECT_GE(parsedBy.size(), 5u) << "the sample's PAT, PMT, NIT, SDT and TOT parse";

    // The shared tables are read (printed) while the threads parse with them.
    std::vector<std::pair<std::size_t, const TISDBTTable*>> shared;
    std::vector<std::string> sharedPrinted;
    for (const auto& entry : previous)
        if (entry.second) {
            shared.push_back({entry.first.second, entry.second.get()});
            sharedPrinted.push_back(printed(*handlerAt(entry.first.second), *entry.second));
        }

    LineCounter sinks[2];
    android_log_host_set_sink(&LineCounter::sink, &sinks[0]);
    std::atomic<int> running{kParseThreads};
    std::atomic<std::uint32_t> redirects{0};
    std::thread redirector([&] {
        // A pause between swaps rather than a busy loop: the parsers keep the
        // cores (under an emulator a spinning thread costs them half).
        for (unsigned i = 0; running.load() > 0; ++i) {
            android_log_host_set_sink(&LineCounter::sink, &sinks[i % 2]);
            redirects.fetch_add(1);
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
    });
    std::vector<std::size_t> mismatches(kParseThreads, 0);
    std::atomic<int> waiting{kParseThreads};
    std::vector<std::thread> parsers;
    for (int t = 0; t < kParseThreads; ++t) {
        parsers.emplace_back([&, t] {
            waiting.fetch_sub(1);
            while (waiting.load() > 0)
                std::this_thread::yield();
            // First all threads on the same sections at once, then each from
            // a different place, so that every class runs beside every other.
            for (std::size_t n = 0; n < 2 * jobs.size(); ++n) {
                const std::size_t offset = n < jobs.size() ? 0 : t * jobs.size() / kParseThreads;
                const std::size_t i = (n + offset) % jobs.size();
                if (!(run(jobs[i]) == expected[i]))
                    ++mismatches[t];
                // Every 8th parse, one of the shared tables is read whole
                // (each thread at other times), so reads overlap the parses
                // without printing outweighing them.
                if ((n + t) % 8 != 0)
                    continue;
                const std::size_t s = i % shared.size();
                if (printed(*handlerAt(shared[s].first), *shared[s].second) != sharedPrinted[s])
                    ++mismatches[t];
            }
            running.fetch_sub(1);
        });
    }
    for (std::thread& parser : parsers)
        parser.join();
    redirector.join();
    android_log_host_set_sink(nullptr, nullptr);

    for (int t = 0; t < kParseThreads; ++t)
        EXPECT_EQ(mismatches[t], 0u) << "thread " << t;
    // The sink is swapped under the log's own lock: no line is lost or doubled.
    EXPECT_EQ(sinks[0].lines + sinks[1].lines, 2 * kParseThreads * linesPerPass);
    EXPECT_GT(redirects.load(), 0u);
    RecordProperty("sections", static_cast<int>(sections.size()));
    RecordProperty("parses_per_thread", static_cast<int>(jobs.size()));
}

} // namespace
