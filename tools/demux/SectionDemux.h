// Per-PID section reassembly of an MPEG-2 transport stream: what a receiver's
// demultiplexer does before it hands complete sections to the parsers.
#ifndef VURO_TOOLS_SECTION_DEMUX_H
#define VURO_TOOLS_SECTION_DEMUX_H

#include <cstddef>
#include <cstdint>
#include <memory>

namespace VuroTools {

constexpr std::size_t TS_PACKET_SIZE = 188;
constexpr std::uint8_t TS_SYNC_BYTE = 0x47;
constexpr std::uint16_t PID_COUNT = 0x2000;
constexpr std::uint16_t NULL_PID = 0x1FFF;
// 3 header bytes + the largest 12-bit section_length.
constexpr std::size_t MAX_SECTION_SIZE = 3 + 0x0FFF;

// Receives what the demultiplexer finds. Sections are handed over complete,
// from their table_id byte; the bytes stay valid only during the call.
class SectionSink {
public:
    virtual ~SectionSink() = default;
    virtual void onSection(std::uint16_t pid, std::uint8_t* section, std::size_t length) = 0;
};

// What a PID carries, as told by the payload of its first packet that starts
// a unit: PES (a packet_start_code_prefix 00 00 01), sections (anything else
// after a pointer_field), or stuffing (the null PID 0x1FFF).
enum class PidContent : std::uint8_t { UNKNOWN, PES, SECTIONS, NULL_PACKETS };

// Packet-level counters of one PID.
struct PidCounters {
    PidContent content = PidContent::UNKNOWN;
    std::uint64_t packets = 0;
    std::uint64_t continuityErrors = 0; // CC breaks; a section in progress is dropped
    std::uint64_t duplicates = 0;       // repeated packets (same CC), ignored
    std::uint64_t errorPackets = 0;     // transport_error_indicator set, skipped
    std::uint64_t scrambledPackets = 0; // transport_scrambling_control not 0, skipped
    std::uint64_t droppedSections = 0;  // incomplete sections abandoned (CC break, new start, bad pointer)
};

class SectionDemux {
public:
    explicit SectionDemux(SectionSink& sink);
    ~SectionDemux();
    SectionDemux(const SectionDemux&) = delete;
    SectionDemux& operator=(const SectionDemux&) = delete;

    // Every PID is counted and every PID carrying sections reassembled (a
    // PID's state is allocated when its first packet arrives). Marking a PID
    // records that a table announces it, which decides nothing here.
    void addPid(std::uint16_t pid);
    bool hasPid(std::uint16_t pid) const { return pid < PID_COUNT && m_wanted[pid]; }

    // One 188-byte packet starting with its sync byte.
    void packet(std::uint8_t* packet)
    {
        const std::uint16_t pid = static_cast<std::uint16_t>(((packet[1] & 0x1F) << 8) | packet[2]);
        pidPacket(pid, packet);
    }

    // Counters of a PID that has had packets (null for any other).
    const PidCounters* counters(std::uint16_t pid) const;

private:
    struct PidState;

    void pidPacket(std::uint16_t pid, std::uint8_t* packet);
    void payload(std::uint16_t pid, PidState& state, std::uint8_t* data, std::size_t size, bool unitStart);
    std::size_t feed(std::uint16_t pid, PidState& state, std::uint8_t* data, std::size_t size);

    SectionSink& m_sink;
    bool m_wanted[PID_COUNT];
    std::unique_ptr<PidState> m_states[PID_COUNT];
};

} // namespace VuroTools

#endif
