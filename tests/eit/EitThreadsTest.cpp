// Event sections parsed on several threads at once, with tables deleted while
// other threads parse. Named EitThreads.* so that the ThreadSanitizer
// configuration runs it.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <VuroISDBT.h>

#include "../support/LogCapture.h"
#include "EitBytes.h"

using namespace Vuro;
using namespace VuroTest;

namespace {

std::string corpusDir()
{
    if (const char* dir = std::getenv("VURO_CORPUS_DIR"))
        return dir;
    struct stat info {};
    const std::string dir = VURO_PROJECT_ROOT "/../shared/corpus";
    return ::stat(dir.c_str(), &info) == 0 && S_ISDIR(info.st_mode) ? dir : std::string();
}

// The complete sections of PID 0x12 in a 188-byte-packet capture.
std::vector<Bytes> eitSections(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    const Bytes ts((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<Bytes> sections;
    Bytes pending;
    auto drain = [&] {
        while (pending.size() >= 3 && pending[0] != 0xFF) {
            const std::size_t total = 3 + (((pending[1] & 0x0F) << 8) | pending[2]);
            if (pending.size() < total)
                return;
            sections.emplace_back(pending.begin(), pending.begin() + total);
            pending.erase(pending.begin(), pending.begin() + total);
        }
        if (!pending.empty() && pending[0] == 0xFF)
            pending.clear();
    };
    for (std::size_t at = 0; at + 188 <= ts.size(); at += 188) {
        const std::uint8_t* p = &ts[at];
        if (p[0] != 0x47 || (((p[1] & 0x1F) << 8) | p[2]) != 0x12 || !(p[3] & 0x10))
            continue;
        std::size_t payload = 4 + ((p[3] & 0x20) ? 1 + p[4] : 0);
        if (payload >= 188)
            continue;
        if (p[1] & 0x40) {
            const std::size_t pointer = p[payload++];
            if (payload + pointer > 188)
                continue;
            pending.insert(pending.end(), p + payload, p + payload + pointer);
            drain();
            pending.assign(p + payload + pointer, p + 188);
        } else if (!pending.empty()) {
            pending.insert(pending.end(), p + payload, p + 188);
        }
        drain();
    }
    return sections;
}

struct Outcome {
    bool parsed;
    U16 code;
    std::size_t events;
};

Outcome parseOnce(Bytes& section)
{
    U16 code = 0;
    std::unique_ptr<TEITTable> table(
        TEITTable::parse(section.data(), static_cast<U32>(section.size()), TRUE, TRUE, &code, nullptr));
    return {table != nullptr, code, table ? table->getEventsIDs().size() : 0};
}

} // namespace

TEST(EitThreads, FourThreadsParseAndDeleteConcurrently)
{
    std::vector<Bytes> sections{eitSection(concat({eventEntry(1, shortEvent()), eventEntry(2, {})})),
                                eitSection(eventEntry(3, descriptor(0xD8, {})))};
    const std::string dir = corpusDir();
    if (!dir.empty()) {
        for (const char* file : {"/EPG_new/TestPacket_EIT.ts", "/nak1114-ariblib/test_aa.ts"}) {
            std::vector<Bytes> real = eitSections(dir + file);
            sections.insert(sections.end(), real.begin(), real.end());
        }
        EXPECT_EQ(sections.size(), 2u + 263 + 1); // every EIT section of both captures
    }
    LogCapture quiet; // the library's lines are not the subject here
    std::vector<Outcome> expected;
    for (Bytes& section : sections)
        expected.push_back(parseOnce(section));

    std::atomic<int> mismatches{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            std::vector<Bytes> mine = sections;
            // Every thread keeps a few tables alive and deletes them while the
            // others parse.
            std::vector<std::unique_ptr<TEITTable>> alive;
            for (int round = 0; round < 3; ++round)
                for (std::size_t i = 0; i < mine.size(); ++i) {
                    const std::size_t at = (i + static_cast<std::size_t>(t) * 7) % mine.size();
                    U16 code = 0;
                    std::unique_ptr<TEITTable> table(TEITTable::parse(
                        mine[at].data(), static_cast<U32>(mine[at].size()), TRUE, TRUE, &code, nullptr));
                    const Outcome got{table != nullptr, code, table ? table->getEventsIDs().size() : 0};
                    if (got.parsed != expected[at].parsed || got.code != expected[at].code ||
                        got.events != expected[at].events)
                        ++mismatches;
                    if (table && i % 5 == 0)
                        alive.push_back(std::move(table));
                    if (alive.size() > 3)
                        alive.erase(alive.begin());
                }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(mismatches.load(), 0);
}
