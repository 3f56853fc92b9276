// Section reassembly and packet framing of the dump's demultiplexer.
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>
#include <unistd.h>

#include "SectionBuilder.h"
#include "SectionDemux.h"
#include "TsReader.h"

using namespace VuroTools;
using VuroTest::Bytes;
using VuroTest::concat;
using VuroTest::SectionBuilder;

namespace {

class Recorder : public SectionSink {
public:
    void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) override
    {
        pids.push_back(pid);
        found.emplace_back(section, section + length);
    }
    std::vector<std::uint16_t> pids;
    std::vector<Bytes> found;
};

// A section of the given total size (header and CRC_32 included).
Bytes section(std::uint8_t tableId, std::size_t size, std::uint8_t fill = 0x11)
{
    return SectionBuilder(tableId).longHeader(0x0640, 1).bytes(Bytes(size - 12, fill)).build();
}

struct PacketSpec {
    PacketSpec(std::uint16_t pid_, std::uint8_t cc_, bool unitStart_ = false, Bytes adaptation_ = {})
        : pid(pid_), cc(cc_), unitStart(unitStart_), adaptation(std::move(adaptation_))
    {
    }
    std::uint16_t pid;
    std::uint8_t cc;
    bool unitStart;
    Bytes adaptation; // adaptation field body, after its length byte
    bool adaptationOnly = false;
    bool error = false;
    std::uint8_t scrambling = 0;
};

Bytes packet(const PacketSpec& spec, const Bytes& payload)
{
    Bytes out{0x47, static_cast<std::uint8_t>((spec.error ? 0x80 : 0) | (spec.unitStart ? 0x40 : 0) | spec.pid >> 8),
              static_cast<std::uint8_t>(spec.pid)};
    const bool adaptation = !spec.adaptation.empty() || spec.adaptationOnly;
    const std::uint8_t control = spec.adaptationOnly ? 0x20 : adaptation ? 0x30 : 0x10;
    out.push_back(static_cast<std::uint8_t>(spec.scrambling << 6 | control | (spec.cc & 0x0F)));
    if (adaptation) {
        // Stuff the adaptation field so that the payload ends the packet.
        Bytes field = spec.adaptation;
        field.resize(184 - 1 - (spec.adaptationOnly ? 0 : payload.size()), 0xFF);
        out.push_back(static_cast<std::uint8_t>(field.size()));
        out.insert(out.end(), field.begin(), field.end());
    }
    out.insert(out.end(), payload.begin(), payload.end());
    out.resize(188, 0xFF);
    return out;
}

Bytes slice(const Bytes& bytes, std::size_t from, std::size_t count)
{
    return Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(from),
                 bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), from + count)));
}

class DemuxTest : public ::testing::Test {
protected:
    void SetUp() override { demux.addPid(0x100); }
    void feed(const PacketSpec& spec, const Bytes& payload)
    {
        Bytes bytes = packet(spec, payload);
        demux.packet(bytes.data());
    }
    // A packet of PID 0x100 starting sections: pointer_field, then the bytes.
    void start(std::uint8_t cc, const Bytes& bytes, std::uint8_t pointer = 0)
    {
        feed({0x100, cc, true}, concat({{pointer}, bytes}));
    }
    // A packet of PID 0x100 going on with a section.
    void more(std::uint8_t cc, const Bytes& bytes) { feed({0x100, cc, false}, bytes); }
    const PidCounters& counters() const { return *demux.counters(0x100); }

    Recorder sink;
    SectionDemux demux{sink};
};

TEST_F(DemuxTest, SectionSpanningThreePacketsAndPointerField)
{
    const Bytes big = section(0x42, 400), next = section(0x42, 30, 0x22);
    start(0, slice(big, 0, 183));
    more(1, slice(big, 183, 184));
    EXPECT_TRUE(sink.found.empty());
    // The last 33 bytes end the section before pointer_field; the next one starts after them.
    start(2, concat({slice(big, 367, 33), next}), 33);
    EXPECT_EQ(sink.found, (std::vector<Bytes>{big, next}));
}

TEST_F(DemuxTest, SeveralSectionsInOnePacketAndHeaderSplitAcrossPackets)
{
    const Bytes a = section(0x4E, 60, 0x01), b = section(0x4E, 121, 0x02), c = section(0x4E, 80, 0x03);
    // a and b fit, c starts with only 2 of its 3 header bytes in the first packet.
    const std::size_t room = 183 - a.size() - b.size();
    ASSERT_LT(room, 3u);
    start(0, concat({a, b, slice(c, 0, room)}));
    EXPECT_EQ(sink.found.size(), 2u);
    more(1, slice(c, room, c.size()));
    EXPECT_EQ(sink.found, (std::vector<Bytes>{a, b, c}));
}

TEST_F(DemuxTest, StuffingEndsThePacketAndBytesAfterASectionInAContinuationAreIgnored)
{
    const Bytes a = section(0x00, 20);
    const Bytes ignored = section(0x00, 20, 0x33); // after stuffing: not a section
    start(0, concat({a, {0xFF}, ignored}));
    EXPECT_EQ(sink.found, (std::vector<Bytes>{a}));
    EXPECT_EQ(sink.pids, (std::vector<std::uint16_t>{0x100}));
    EXPECT_EQ(counters().packets, 1u);

    // A section that ends in a packet without payload_unit_start_indicator:
    // what follows it there is stuffing, whatever its value.
    const Bytes big = section(0x00, 200);
    start(1, slice(big, 0, 183));
    more(2, concat({slice(big, 183, 17), ignored}));
    EXPECT_EQ(sink.found, (std::vector<Bytes>{a, big}));
}

TEST_F(DemuxTest, AdaptationFieldsAreSkippedAndAdaptationOnlyPacketsKeepTheCounter)
{
    const Bytes big = section(0x02, 250);
    PacketSpec spec{0x100, 0, true, {0x10, 1, 2, 3, 4, 5, 6}}; // PCR flag and a PCR
    feed(spec, concat({{0}, slice(big, 0, 150)}));
    PacketSpec only{0x100, 0}; // no payload: the counter does not advance
    only.adaptationOnly = true;
    feed(only, {});
    feed({0x100, 1, false, {0x00}}, slice(big, 150, 100));
    EXPECT_EQ(sink.found, (std::vector<Bytes>{big}));
    EXPECT_EQ(counters().continuityErrors, 0u);
}

TEST_F(DemuxTest, ErrorAndScrambledPacketsAreSkipped)
{
    const Bytes a = section(0x00, 30);
    PacketSpec spec{0x100, 0, true};
    spec.error = true;
    feed(spec, concat({{0}, a}));
    spec.error = false;
    spec.scrambling = 2;
    feed(spec, concat({{0}, a}));
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(counters().errorPackets, 1u);
    EXPECT_EQ(counters().scrambledPackets, 1u);
    start(1, a);
    EXPECT_EQ(sink.found.size(), 1u);
}

TEST_F(DemuxTest, ContinityBreakDropsThePartialSectionAndIsCounted)
{
    const Bytes big = section(0x42, 300), small = section(0x42, 40);
    start(0, slice(big, 0, 183));
    more(2, slice(big, 183, 117)); // packet 1 lost
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(counters().continuityErrors, 1u);
    EXPECT_EQ(counters().droppedSections, 1u);
    // A repeated packet is ignored, and reassembly resumes at the next start.
    more(2, slice(big, 183, 117));
    EXPECT_EQ(counters().duplicates, 1u);
    start(3, small);
    EXPECT_EQ(sink.found, (std::vector<Bytes>{small}));
}

TEST_F(DemuxTest, EveryPidIsCountedWithWhatItCarriesAndBadPointersAreDropped)
{
    // Sections on a PID nothing marked are reassembled all the same.
    const Bytes pat = section(0x00, 20);
    feed({0x101, 0, true}, concat({{0}, pat}));
    EXPECT_EQ(sink.found, (std::vector<Bytes>{pat}));
    EXPECT_EQ(sink.pids, (std::vector<std::uint16_t>{0x101}));
    EXPECT_FALSE(demux.hasPid(0x101));
    EXPECT_EQ(demux.counters(0x101)->content, PidContent::SECTIONS);
    // A PES PID (packet_start_code_prefix) is counted, its CC checked, and
    // never read as sections; null packets are counted only.
    feed({0x102, 0, true}, {0x00, 0x00, 0x01, 0xE0, 0x00, 0x00});
    feed({0x102, 2, false}, {0x00, 0x00, 0x00});
    feed({NULL_PID, 7, false}, {});
    feed({NULL_PID, 7, false}, {});
    EXPECT_EQ(demux.counters(0x102)->content, PidContent::PES);
    EXPECT_EQ(demux.counters(0x102)->continuityErrors, 1u);
    EXPECT_EQ(demux.counters(NULL_PID)->content, PidContent::NULL_PACKETS);
    EXPECT_EQ(demux.counters(NULL_PID)->packets, 2u);
    EXPECT_EQ(demux.counters(NULL_PID)->duplicates, 0u);
    EXPECT_EQ(demux.counters(0x103), nullptr);
    EXPECT_EQ(sink.found.size(), 1u);

    start(0, {}, 184);
    EXPECT_EQ(sink.found.size(), 1u);
    EXPECT_EQ(counters().droppedSections, 1u);
}

// Sixty packets, one in three on PID 0x100 starting a PAT, framed as 188, 192
// (timestamp first) or 204 (16 bytes after) bytes.
Bytes stream(std::size_t unit, int count = 60)
{
    Bytes out;
    for (int i = 0; i < count; ++i) {
        const bool pat = i % 3 == 0;
        const std::uint16_t pid = pat ? 0x100 : 0x1FFF;
        const Bytes p =
            packet({pid, static_cast<std::uint8_t>(i / 3), pat}, pat ? concat({{0}, section(0x00, 24)}) : Bytes{});
        if (unit == 192)
            out.insert(out.end(), {0x12, 0x34, 0x56, 0x78});
        out.insert(out.end(), p.begin(), p.end());
        if (unit == 204)
            out.insert(out.end(), 16, 0x47); // a trailer may even hold sync-looking bytes
    }
    return out;
}

struct ReadResult {
    bool ok;
    ReadReport report;
    std::string error;
    std::size_t sections;
};

ReadResult readThrough(const Bytes& data)
{
    std::FILE* file = std::tmpfile();
    if (!data.empty())
        std::fwrite(data.data(), 1, data.size(), file);
    std::fflush(file);
    std::rewind(file);
    Recorder sink;
    SectionDemux demux(sink);
    demux.addPid(0x100);
    // Blocks smaller than the stream, so units straddle block ends.
    TsReader reader(fileno(file), 0, 4096);
    ReadResult result{reader.run(demux), reader.report(), reader.error(), sink.found.size()};
    std::fclose(file);
    return result;
}

TEST(TsReaderTest, DetectsTheThreePacketSizes)
{
    for (std::size_t unit : {188u, 192u, 204u}) {
        const Bytes data = stream(unit);
        const PacketFormat format = detectPacketFormat(data.data(), data.size());
        EXPECT_EQ(format.unitSize, unit);
        EXPECT_EQ(format.firstSync, unit == 192 ? 4u : 0u);
        const ReadResult result = readThrough(data);
        ASSERT_TRUE(result.ok) << result.error;
        EXPECT_EQ(result.report.packets, 60u) << unit;
        EXPECT_EQ(result.sections, 20u) << unit;
        EXPECT_EQ(result.report.trailingBytes, 0u);
    }
}

TEST(TsReaderTest, RecoversSyncAndReportsATruncatedEnd)
{
    Bytes data = stream(188, 30);
    data.insert(data.begin() + 188 * 10, {0x00, 0x01, 0x02}); // 3 stray bytes
    data.resize(data.size() - 100);                            // the last packet cut short
    const ReadResult result = readThrough(data);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ(result.report.syncLosses, 1u);
    EXPECT_EQ(result.report.packets, 29u);
    EXPECT_EQ(result.report.trailingBytes, 88u);
}

TEST(TsReaderTest, TellsAFileOfSectionsApart)
{
    const Bytes one = section(0x42, 40), other = section(0x00, 20);
    const Bytes file = concat({one, {0xFF, 0xFF}, other});
    EXPECT_TRUE(looksLikeSections(file.data(), file.size(), true));
    // The start of a longer input: only the last section may be cut.
    EXPECT_TRUE(looksLikeSections(file.data(), file.size() - 5, false));
    EXPECT_FALSE(looksLikeSections(file.data(), file.size() - 5, true));
    EXPECT_FALSE(looksLikeSections(one.data(), 30, false)); // not one whole section
    Bytes corrupt = file;
    corrupt[20] ^= 0x01;
    EXPECT_FALSE(looksLikeSections(corrupt.data(), corrupt.size(), true));
    const Bytes text(5000, 'x');
    EXPECT_FALSE(looksLikeSections(text.data(), text.size(), true));
}

// A file is mapped whole, yet progress still comes while it is walked (a
// slice at a time), not only once at the end.
TEST(TsReaderTest, ReportsProgressThroughAMappedFile)
{
    Bytes packet(188, 0xFF);
    packet[0] = 0x47;
    packet[1] = 0x1F; // null packets
    packet[3] = 0x10;
    const std::size_t count = (std::size_t(150) << 20) / 188;
    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    for (std::size_t i = 0; i < count; ++i)
        std::fwrite(packet.data(), 1, packet.size(), file);
    std::fflush(file);
    std::rewind(file);
    Recorder sink;
    SectionDemux demux(sink);
    TsReader reader(fileno(file));
    std::vector<std::uint64_t> reports;
    ASSERT_TRUE(reader.run(demux, [&reports](std::uint64_t bytes) { reports.push_back(bytes); })) << reader.error();
    std::fclose(file);
    EXPECT_EQ(reader.report().packets, count);
    ASSERT_GE(reports.size(), 2u);
    EXPECT_GT(reports[0], 0u);
    EXPECT_LT(reports[0], reports[1]);
    EXPECT_LT(reports.back(), count * 188);
}

TEST(TsReaderTest, RefusesWhatIsNotATransportStream)
{
    ReadResult result = readThrough(Bytes(5000, 'x'));
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.error.find("not a transport stream"), std::string::npos);
    result = readThrough(Bytes(100, 0x47));
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.error.find("truncated"), std::string::npos);
    result = readThrough(Bytes());
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, "the input is empty");
}

} // namespace
