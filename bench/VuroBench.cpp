// Parse + delete per table class on the real captures of the shared corpus
// (when present beside the project) and on the bundled sample's sections;
// libdvbv5's parse + free of the same sections in the same run when it is
// installed; heap allocations per parse; the section CRC-32 engines.
//
//   vuro_bench [--smoke] [Google Benchmark flags]
//
// --smoke runs every benchmark for one iteration (the CI check). Closing
// table: median time per section of each contender and their ratio.
#include <benchmark/benchmark.h>

#include <android/log_host.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <unistd.h>
#include <string>
#include <vector>

#include <VuroISDBT.h>
#if __has_include(<utils/SectionCrc32.h>)
#include <utils/SectionCrc32.h>
#define VURO_BENCH_CRC_ENGINES 1
#endif

#include "BenchSections.h"
#include "CountingAllocator.h"

#ifdef VURO_BENCH_DVBV5
#include <libdvbv5/dvb-fe.h>
#include <libdvbv5/eit.h>
#include <libdvbv5/nit.h>
#include <libdvbv5/pat.h>
#include <libdvbv5/pmt.h>
#include <libdvbv5/sdt.h>
#endif

using namespace Vuro;
using namespace VuroBench;

namespace {

using ParseFn = void (*)(std::uint8_t* data, std::size_t length);

template <class T>
void vuroParse(std::uint8_t* data, std::size_t length)
{
    U16 error = TISDBTTable::ERROR_OK;
    T* table = T::parse(data, static_cast<U32>(length), TRUE, TRUE, &error, nullptr);
    benchmark::DoNotOptimize(table);
    delete table;
}

#ifdef VURO_BENCH_DVBV5
dvb_v5_fe_parms* g_parms = nullptr;

void silentDvbLog(int, const char*, ...) {}

#define VURO_BENCH_DVB_PARSE(table)                                                                              \
    void dvbParse_##table(std::uint8_t* data, std::size_t length)                                              \
    {                                                                                                          \
        dvb_table_##table* parsed = nullptr;                                                                   \
        dvb_table_##table##_init(g_parms, data, static_cast<ssize_t>(length), &parsed);                       \
        benchmark::DoNotOptimize(parsed);                                                                      \
        if (parsed)                                                                                            \
            dvb_table_##table##_free(parsed);                                                                  \
    }
VURO_BENCH_DVB_PARSE(pat)
VURO_BENCH_DVB_PARSE(pmt)
VURO_BENCH_DVB_PARSE(nit)
VURO_BENCH_DVB_PARSE(sdt)
VURO_BENCH_DVB_PARSE(eit)
#undef VURO_BENCH_DVB_PARSE
#else
constexpr ParseFn dvbParse_pat = nullptr, dvbParse_pmt = nullptr, dvbParse_nit = nullptr, dvbParse_sdt = nullptr,
                  dvbParse_eit = nullptr;
#endif

struct TableClass {
    const char* name;
    std::vector<std::uint8_t> tableIds;
    ParseFn vuro;  // null while the library has no class for it
    ParseFn dvbv5; // null where libdvbv5 has none (or is absent)
};

std::vector<TableClass> tableClasses()
{
    std::vector<std::uint8_t> eitIds;
    for (std::uint8_t id = 0x4E; id <= 0x6F; ++id)
        eitIds.push_back(id);
    return {{"PAT", {0x00}, vuroParse<TPATTable>, dvbParse_pat},
            {"PMT", {0x02}, vuroParse<TPMTTable>, dvbParse_pmt},
            {"NIT", {0x40, 0x41}, vuroParse<TNITTable>, dvbParse_nit},
            {"SDT", {0x42, 0x46}, vuroParse<TSDTTable>, dvbParse_sdt},
            {"EIT", eitIds, vuroParse<TEITTable>, dvbParse_eit},
            {"TOT", {0x73}, vuroParse<TTOTTable>, nullptr}};
}

void parseAll(std::vector<Section>& sections, ParseFn parse)
{
    for (Section& section : sections)
        parse(section.data(), section.size());
}

// One iteration parses and deletes every section of the set once.
void runParse(benchmark::State& state, std::vector<Section>* sections, ParseFn parse, AllocationCount perPass)
{
    for (auto _ : state)
        parseAll(*sections, parse);
    const double count = static_cast<double>(sections->size());
    state.counters["sections"] = count;
    state.counters["per_section"] =
        benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    if (canCountAllocations()) {
        state.counters["allocs"] = static_cast<double>(perPass.blocks) / count;
        state.counters["alloc_bytes"] = static_cast<double>(perPass.bytes) / count;
    }
}

#ifdef VURO_BENCH_CRC_ENGINES
void runCrc(benchmark::State& state, U32 (*crc)(U32, const U8*, std::size_t))
{
    std::vector<U8> data(static_cast<std::size_t>(state.range(0)));
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<U8>(i * 131 + 7);
    for (auto _ : state)
        benchmark::DoNotOptimize(crc(0xFFFFFFFFu, data.data(), data.size()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}
#endif

// Console output plus, at the end, the median figures side by side.
class SummaryReporter : public benchmark::ConsoleReporter {
public:
    SummaryReporter() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Defaults : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const bool single = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
            if (!single && run.aggregate_name != "median")
                continue;
            auto counter = [&](const char* name) {
                auto found = run.counters.find(name);
                return found == run.counters.end() ? -1.0 : found->second.value;
            };
            if (counter("per_section") < 0)
                continue;
            m_rows[run.run_name.function_name] = {counter("per_section") * 1e9, counter("sections"),
                                                  counter("allocs"), counter("alloc_bytes")};
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\nmedian parse + delete per section (ns), heap allocations and bytes per section\n");
        std::printf("%-4s %-7s %8s %10s %10s %18s %14s %18s\n", "", "set", "sections", "vuro", "libdvbv5",
                    "ratio", "allocs v/d", "bytes v/d");
        for (const auto& [key, ours] : m_rows) {
            const std::string suffix = "/vuro";
            if (key.size() < suffix.size() || key.compare(key.size() - suffix.size(), suffix.size(), suffix) != 0)
                continue;
            const std::string base = key.substr(0, key.size() - suffix.size());
            const std::size_t slash = base.find('/');
            auto theirs = m_rows.find(base + "/libdvbv5");
            char ratio[32] = "-", theirTime[16] = "-", allocs[32], bytes[32];
            std::snprintf(allocs, sizeof allocs, "%.1f", ours.allocs);
            std::snprintf(bytes, sizeof bytes, "%.0f", ours.bytes);
            if (theirs != m_rows.end()) {
                const Row& t = theirs->second;
                std::snprintf(theirTime, sizeof theirTime, "%.0f", t.ns);
                if (ours.ns <= t.ns)
                    std::snprintf(ratio, sizeof ratio, "%.2fx faster", t.ns / ours.ns);
                else
                    std::snprintf(ratio, sizeof ratio, "%.2fx slower", ours.ns / t.ns);
                std::snprintf(allocs, sizeof allocs, "%.1f / %.1f", ours.allocs, t.allocs);
                std::snprintf(bytes, sizeof bytes, "%.0f / %.0f", ours.bytes, t.bytes);
            }
            std::printf("%-4s %-7s %8.0f %10.0f %10s %18s %14s %18s\n", base.substr(0, slash).c_str(),
                        base.substr(slash + 1).c_str(), ours.sections, ours.ns, theirTime, ratio,
                        canCountAllocations() ? allocs : "n/a", canCountAllocations() ? bytes : "n/a");
        }
        std::fflush(stdout);
    }

private:
    struct Row {
        double ns, sections, allocs, bytes;
    };
    std::map<std::string, Row> m_rows;
};

std::string corpusDir()
{
    if (const char* dir = std::getenv("VURO_CORPUS_DIR"))
        return dir;
    return PROJECT_ROOT "/../shared/corpus";
}

void ignoreLogLine(int, const char*, const char*, void*) {}

} // namespace

int main(int argc, char** argv)
{
    bool smoke = false;
    std::vector<char*> args;
    for (int i = 0; i < argc; ++i) {
        if (std::strcmp(argv[i], "--smoke") == 0)
            smoke = true;
        else
            args.push_back(argv[i]);
    }
    int argCount = static_cast<int>(args.size());
    benchmark::Initialize(&argCount, args.data());
    if (benchmark::ReportUnrecognizedArguments(argCount, args.data()))
        return 1;

    // Lines the library logs for sections it refuses are formatted but not
    // printed.
    android_log_host_set_sink(ignoreLogLine, nullptr);
#ifdef VURO_BENCH_DVBV5
    g_parms = dvb_fe_dummy();
    g_parms->logfunc = silentDvbLog;
#endif

    const std::vector<std::pair<const char*, std::vector<Section>>> sources = {
        {"corpus", readSectionTree(corpusDir())}, {"sample", readSections(ISDBT_SAMPLE)}};
    static std::vector<std::vector<Section>> sets; // outlive the registered benchmarks
    sets.reserve(sources.size() * tableClasses().size());
    for (const auto& [source, all] : sources) {
        for (const TableClass& table : tableClasses()) {
            SectionSet set = select(all, table.tableIds);
            if (set.sections.empty())
                continue;
            sets.push_back(std::move(set.sections));
            std::vector<Section>* sections = &sets.back();
            for (const auto& [contender, parse] : {std::make_pair("vuro", table.vuro),
                                                   std::make_pair("libdvbv5", table.dvbv5)}) {
                if (!parse)
                    continue;
                parseAll(*sections, parse); // warm-up: first-use costs stay out of the counts
                const ParseFn fn = parse; // a lambda may not capture a structured binding (clang 14)
                const AllocationCount perPass = countAllocations([sections, fn] { parseAll(*sections, fn); });
                const std::string name = std::string(table.name) + "/" + source + "/" + contender;
                auto* bench = benchmark::RegisterBenchmark(name.c_str(), runParse, sections, parse, perPass);
                if (smoke)
                    bench->Iterations(1)->Repetitions(1);
            }
        }
    }
#ifdef VURO_BENCH_CRC_ENGINES
    for (const auto& [name, engine] :
         {std::make_pair("CRC32/bytewise", &SectionCrc32::bytewise), std::make_pair("CRC32/sliced", &SectionCrc32::sliced),
          std::make_pair("CRC32/selected", &SectionCrc32::update)}) {
        auto* bench = benchmark::RegisterBenchmark(name, runCrc, engine)->Arg(188)->Arg(4096);
        if (smoke)
            bench->Iterations(1)->Repetitions(1);
    }
#endif

    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
