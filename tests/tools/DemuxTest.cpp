// Section reassembly and packet framing of the dump's demultiplexer.
#include <gtest/gtest.h>

#include <cstdio>
#include <unistd.h>

#include "SectionBuilder.h"
#include "SectionDemux.h"
#include "TsReader.h"

using namespace VuroTools;
using VuroTest::Bytes;
using VuroTest::SectionBuilder;

namespace {

struct Found {
    std::uint16_t pid;
    Bytes section;
};

class Recorder : public SectionSink {
public:
    void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) override
    {
        found.push_back({pid, Bytes(section, section + length)});
    }
    std::vector<Found> found;
};

// A section of the given total size (header and CRC_32 included).
Bytes section(std::uint8_t tableId, std::size_t size, std::uint8_t fill = 0x11)
{
    return SectionBuilder(tableId).longHeader(0x0640, 1).bytes(Bytes(size - 12, fill)).build();
}

struct PacketSpec {
    std::uint16_t pid = 0x100;
    std::uint8_t cc = 0;
    bool unitStart = false;
    Bytes adaptation;        // adaptation field body, after its length byte
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
        const std::size_t room = 184 - 1 - (spec.adaptationOnly ? 0 : payload.size());
        Bytes field = spec.adaptation;
        field.resize(room, 0xFF);
        out.push_back(static_cast<std::uint8_t>(field.size()));
        out.insert(out.end(), field.begin(), field.end());
    }
    out.insert(out.end(), payload.begin(), payload.end());
    out.resize(188, 0xFF);
    return out;
}

// Payload of a packet starting sections: pointer_field, then the bytes.
Bytes startPayload(std::uint8_t pointer, const Bytes& bytes)
{
    Bytes out{pointer};
    out.insert(out.end(), bytes.begin(), bytes.end());
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
    void feed(Bytes packetBytes) { demux.packet(packetBytes.data()); }

    Recorder sink;
    SectionDemux demux{sink};
};

TEST_F(DemuxTest, SectionInOnePacketThenStuffing)
{
    const Bytes pat = section(0x00, 24);
    PacketSpec spec;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, pat)));
    ASSERT_EQ(sink.found.size(), 1u);
    EXPECT_EQ(sink.found[0].pid, 0x100);
    EXPECT_EQ(sink.found[0].section, pat);
    EXPECT_EQ(demux.counters(0x100)->packets, 1u);
}

TEST_F(DemuxTest, SectionSpanningThreePacketsAndPointerField)
{
    const Bytes big = section(0x42, 400);
    const Bytes next = section(0x42, 30, 0x22);
    PacketSpec spec;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, slice(big, 0, 183))));
    spec.unitStart = false;
    spec.cc = 1;
    feed(packet(spec, slice(big, 183, 184)));
    EXPECT_TRUE(sink.found.empty());
    // The last 33 bytes end the section before pointer_field; the next one starts after them.
    spec.unitStart = true;
    spec.cc = 2;
    Bytes tail = slice(big, 367, 33);
    tail.insert(tail.end(), next.begin(), next.end());
    feed(packet(spec, startPayload(33, tail)));
    ASSERT_EQ(sink.found.size(), 2u);
    EXPECT_EQ(sink.found[0].section, big);
    EXPECT_EQ(sink.found[1].section, next);
}

TEST_F(DemuxTest, SeveralSectionsInOnePacketAndHeaderSplitAcrossPackets)
{
    const Bytes a = section(0x4E, 60, 0x01), b = section(0x4E, 121, 0x02), c = section(0x4E, 80, 0x03);
    // a and b fit, c starts with only 2 of its 3 header bytes in the first packet.
    Bytes first = a;
    first.insert(first.end(), b.begin(), b.end());
    const std::size_t room = 183 - first.size();
    ASSERT_LT(room, 3u);
    Bytes cHead = slice(c, 0, room);
    first.insert(first.end(), cHead.begin(), cHead.end());
    PacketSpec spec;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, first)));
    ASSERT_EQ(sink.found.size(), 2u);
    spec.unitStart = false;
    spec.cc = 1;
    feed(packet(spec, slice(c, room, c.size())));
    ASSERT_EQ(sink.found.size(), 3u);
    EXPECT_EQ(sink.found[0].section, a);
    EXPECT_EQ(sink.found[1].section, b);
    EXPECT_EQ(sink.found[2].section, c);
}

TEST_F(DemuxTest, StuffingEndsThePacketAndBytesAfterASectionInAContinuationAreIgnored)
{
    const Bytes a = section(0x00, 20);
    Bytes payload = a;
    payload.push_back(0xFF);
    const Bytes ignored = section(0x00, 20, 0x33); // after stuffing: not a section
    payload.insert(payload.end(), ignored.begin(), ignored.end());
    PacketSpec spec;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, payload)));
    ASSERT_EQ(sink.found.size(), 1u);

    // A section that ends in a packet without payload_unit_start_indicator:
    // what follows it there is stuffing, whatever its value.
    const Bytes big = section(0x00, 200);
    spec.cc = 1;
    feed(packet(spec, startPayload(0, slice(big, 0, 183))));
    spec.unitStart = false;
    spec.cc = 2;
    Bytes rest = slice(big, 183, 17);
    rest.insert(rest.end(), ignored.begin(), ignored.end());
    feed(packet(spec, rest));
    ASSERT_EQ(sink.found.size(), 2u);
    EXPECT_EQ(sink.found[1].section, big);
}

TEST_F(DemuxTest, AdaptationFieldsAreSkippedAndAdaptationOnlyPacketsKeepTheCounter)
{
    const Bytes big = section(0x02, 250);
    PacketSpec spec;
    spec.unitStart = true;
    spec.adaptation = {0x10, 1, 2, 3, 4, 5, 6}; // PCR flag and a PCR
    feed(packet(spec, startPayload(0, slice(big, 0, 150))));
    PacketSpec only;
    only.adaptationOnly = true;
    only.cc = 0; // no payload: the counter does not advance
    feed(packet(only, {}));
    spec = PacketSpec();
    spec.cc = 1;
    spec.adaptation = {0x00};
    feed(packet(spec, slice(big, 150, 100)));
    ASSERT_EQ(sink.found.size(), 1u);
    EXPECT_EQ(sink.found[0].section, big);
    EXPECT_EQ(demux.counters(0x100)->continuityErrors, 0u);
}

TEST_F(DemuxTest, ErrorAndScrambledPacketsAreSkipped)
{
    const Bytes a = section(0x00, 30);
    PacketSpec spec;
    spec.unitStart = true;
    spec.error = true;
    feed(packet(spec, startPayload(0, a)));
    spec.error = false;
    spec.scrambling = 2;
    feed(packet(spec, startPayload(0, a)));
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(demux.counters(0x100)->errorPackets, 1u);
    EXPECT_EQ(demux.counters(0x100)->scrambledPackets, 1u);
    spec.scrambling = 0;
    spec.cc = 1;
    feed(packet(spec, startPayload(0, a)));
    EXPECT_EQ(sink.found.size(), 1u);
}

TEST_F(DemuxTest, ContinityBreakDropsThePartialSectionAndIsCounted)
{
    const Bytes big = section(0x42, 300), small = section(0x42, 40);
    PacketSpec spec;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, slice(big, 0, 183))));
    spec.unitStart = false;
    spec.cc = 2; // packet 1 lost
    feed(packet(spec, slice(big, 183, 117)));
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(demux.counters(0x100)->continuityErrors, 1u);
    EXPECT_EQ(demux.counters(0x100)->droppedSections, 1u);
    // A repeated packet is ignored, and reassembly resumes at the next start.
    feed(packet(spec, slice(big, 183, 117)));
    EXPECT_EQ(demux.counters(0x100)->duplicates, 1u);
    spec.unitStart = true;
    spec.cc = 3;
    feed(packet(spec, startPayload(0, small)));
    ASSERT_EQ(sink.found.size(), 1u);
    EXPECT_EQ(sink.found[0].section, small);
}

TEST_F(DemuxTest, OtherPidsAndBadPointersAreIgnored)
{
    PacketSpec spec;
    spec.pid = 0x101;
    spec.unitStart = true;
    feed(packet(spec, startPayload(0, section(0x00, 20))));
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(demux.counters(0x101), nullptr);
    spec.pid = 0x100;
    feed(packet(spec, startPayload(184, {})));
    EXPECT_TRUE(sink.found.empty());
    EXPECT_EQ(demux.counters(0x100)->droppedSections, 1u);
}

// The same packets framed as 188, 192 (timestamp first) and 204 (16 bytes
// after) are read alike.
Bytes framed(const std::vector<Bytes>& packets, std::size_t unit)
{
    Bytes out;
    for (const Bytes& p : packets) {
        if (unit == 192)
            out.insert(out.end(), {0x12, 0x34, 0x56, 0x78});
        out.insert(out.end(), p.begin(), p.end());
        if (unit == 204)
            out.insert(out.end(), 16, 0x47); // a trailer may even hold sync-looking bytes
    }
    return out;
}

std::vector<Bytes> streamPackets(int count, Bytes& expected)
{
    std::vector<Bytes> packets;
    expected = section(0x00, 24);
    for (int i = 0; i < count; ++i) {
        PacketSpec spec;
        spec.pid = i % 3 == 0 ? 0x100 : 0x1FFF;
        spec.cc = static_cast<std::uint8_t>(i / 3);
        spec.unitStart = spec.pid == 0x100;
        packets.push_back(packet(spec, spec.unitStart ? startPayload(0, expected) : Bytes{}));
    }
    return packets;
}

struct ReadResult {
    bool ok;
    ReadReport report;
    std::string error;
    std::size_t sections;
};

ReadResult readThrough(const Bytes& data, std::size_t blockSize = 4096)
{
    std::FILE* file = std::tmpfile();
    if (!data.empty())
        std::fwrite(data.data(), 1, data.size(), file);
    std::fflush(file);
    std::rewind(file);
    Recorder sink;
    SectionDemux demux(sink);
    demux.addPid(0x100);
    TsReader reader(fileno(file), 0, blockSize);
    ReadResult result{reader.run(demux), reader.report(), reader.error(), sink.found.size()};
    std::fclose(file);
    return result;
}

TEST(TsReaderTest, DetectsTheThreePacketSizes)
{
    Bytes expected;
    const std::vector<Bytes> packets = streamPackets(60, expected);
    for (std::size_t unit : {188u, 192u, 204u}) {
        const Bytes data = framed(packets, unit);
        const PacketFormat format = detectPacketFormat(data.data(), data.size());
        EXPECT_EQ(format.unitSize, unit);
        EXPECT_EQ(format.firstSync, unit == 192 ? 4u : 0u);
        // Blocks smaller than the stream, so units straddle block ends.
        const ReadResult result = readThrough(data, 4096);
        ASSERT_TRUE(result.ok) << result.error;
        EXPECT_EQ(result.report.packets, 60u) << unit;
        EXPECT_EQ(result.sections, 20u) << unit;
        EXPECT_EQ(result.report.trailingBytes, 0u);
    }
}

TEST(TsReaderTest, RecoversSyncAndReportsATruncatedEnd)
{
    Bytes expected;
    std::vector<Bytes> packets = streamPackets(30, expected);
    Bytes data = framed(packets, 188);
    data.insert(data.begin() + 188 * 10, {0x00, 0x01, 0x02}); // 3 stray bytes
    data.resize(data.size() - 100);                            // the last packet cut short
    const ReadResult result = readThrough(data);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ(result.report.syncLosses, 1u);
    EXPECT_EQ(result.report.packets, 29u);
    EXPECT_EQ(result.report.trailingBytes, 88u);
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
