#include "SectionDemux.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace VuroTools {

struct SectionDemux::PidState {
    PidCounters counters;
    int lastContinuityCounter = -1; // none seen yet
    bool inSection = false;
    std::size_t filled = 0;
    std::size_t expected = 0; // 3 + section_length, known once 3 bytes are in
    std::uint8_t buffer[MAX_SECTION_SIZE];

    void abandon()
    {
        if (inSection)
            ++counters.droppedSections;
        inSection = false;
        filled = 0;
        expected = 0;
    }
};

SectionDemux::SectionDemux(SectionSink& sink) : m_sink(sink)
{
    std::fill(std::begin(m_wanted), std::end(m_wanted), false);
}

SectionDemux::~SectionDemux() = default;

void SectionDemux::addPid(std::uint16_t pid)
{
    if (pid < PID_COUNT)
        m_wanted[pid] = true;
}

const PidCounters* SectionDemux::counters(std::uint16_t pid) const
{
    return pid < PID_COUNT && m_states[pid] ? &m_states[pid]->counters : nullptr;
}

void SectionDemux::pidPacket(std::uint16_t pid, std::uint8_t* packet)
{
    std::unique_ptr<PidState>& slot = m_states[pid];
    if (!slot) {
        slot.reset(new PidState);
        if (pid == NULL_PID)
            slot->counters.content = PidContent::NULL_PACKETS;
    }
    PidState& state = *slot;
    ++state.counters.packets;
    if (state.counters.content == PidContent::NULL_PACKETS)
        return; // stuffing: its continuity_counter means nothing
    if (packet[1] & 0x80) {
        // transport_error_indicator: nothing in the packet can be trusted,
        // the continuity counter included.
        ++state.counters.errorPackets;
        return;
    }
    const bool unitStart = (packet[1] & 0x40) != 0;
    const unsigned adaptationControl = (packet[3] >> 4) & 0x03;
    const int continuityCounter = packet[3] & 0x0F;

    std::size_t position = 4;
    bool discontinuity = false;
    if (adaptationControl & 0x02) {
        const std::size_t adaptationLength = packet[4];
        position = 5 + adaptationLength;
        if (position > TS_PACKET_SIZE) {
            // An adaptation field longer than the packet: the packet is corrupt.
            ++state.counters.errorPackets;
            state.abandon();
            return;
        }
        discontinuity = adaptationLength > 0 && (packet[5] & 0x80) != 0;
    }
    if (!(adaptationControl & 0x01))
        return; // no payload: the continuity counter does not advance

    if (state.lastContinuityCounter >= 0 && !discontinuity) {
        if (continuityCounter == state.lastContinuityCounter) {
            ++state.counters.duplicates; // a packet may be sent twice; the copy is ignored
            return;
        }
        if (continuityCounter != ((state.lastContinuityCounter + 1) & 0x0F)) {
            ++state.counters.continuityErrors;
            state.abandon();
        }
    } else if (discontinuity) {
        state.abandon(); // a signalled discontinuity also ends the section in progress
    }
    state.lastContinuityCounter = continuityCounter;

    if (packet[3] & 0xC0) {
        ++state.counters.scrambledPackets;
        state.abandon();
        return;
    }
    std::uint8_t* const data = packet + position;
    const std::size_t size = TS_PACKET_SIZE - position;
    if (state.counters.content == PidContent::UNKNOWN && unitStart)
        state.counters.content = size >= 3 && data[0] == 0x00 && data[1] == 0x00 && data[2] == 0x01
                                     ? PidContent::PES
                                     : PidContent::SECTIONS;
    if (state.counters.content == PidContent::SECTIONS)
        payload(pid, state, data, size, unitStart);
}

void SectionDemux::payload(std::uint16_t pid, PidState& state, std::uint8_t* data, std::size_t size, bool unitStart)
{
    if (!unitStart) {
        // Continuation of the section in progress; once it is complete the
        // rest of the packet is stuffing (no section starts without
        // payload_unit_start_indicator).
        if (state.inSection)
            feed(pid, state, data, size);
        return;
    }
    if (size == 0) {
        state.abandon();
        return;
    }
    const std::size_t pointer = data[0];
    ++data;
    --size;
    if (pointer > size) {
        state.abandon();
        ++state.counters.droppedSections; // the pointer_field points outside the packet
        return;
    }
    if (state.inSection) {
        // The bytes before pointer_field end the section in progress.
        feed(pid, state, data, pointer);
        state.abandon();
    }
    data += pointer;
    size -= pointer;
    // Sections follow each other until the payload ends or stuffing (0xFF) begins.
    while (size > 0 && data[0] != 0xFF) {
        state.inSection = true;
        state.filled = 0;
        state.expected = 0;
        const std::size_t used = feed(pid, state, data, size);
        data += used;
        size -= used;
    }
}

std::size_t SectionDemux::feed(std::uint16_t pid, PidState& state, std::uint8_t* data, std::size_t size)
{
    std::size_t used = 0;
    if (state.filled < 3) {
        const std::size_t take = std::min(3 - state.filled, size);
        std::memcpy(state.buffer + state.filled, data, take);
        state.filled += take;
        used = take;
        if (state.filled < 3)
            return used;
        state.expected = 3 + ((static_cast<std::size_t>(state.buffer[1] & 0x0F) << 8) | state.buffer[2]);
    }
    const std::size_t take = std::min(state.expected - state.filled, size - used);
    std::memcpy(state.buffer + state.filled, data + used, take);
    state.filled += take;
    used += take;
    if (state.filled == state.expected) {
        state.inSection = false;
        state.filled = 0;
        m_sink.onSection(pid, state.buffer, state.expected);
    }
    return used;
}

} // namespace VuroTools
