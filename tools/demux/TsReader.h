// Reads a transport stream in large blocks and hands every 188-byte packet
// to the demultiplexer. Packets of 188 bytes, 192 bytes (a 4-byte timestamp
// before each packet) and 204 bytes (16 bytes of parity or transmission
// information after each packet) are told apart by their sync bytes.
#ifndef VURO_TOOLS_TS_READER_H
#define VURO_TOOLS_TS_READER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "SectionDemux.h"

namespace VuroTools {

struct PacketFormat {
    std::size_t unitSize = 0;  // 188, 192 or 204; 0 when no format fits
    std::size_t firstSync = 0; // offset of the first sync byte
};

// Looks for sync bytes repeating at one of the three unit sizes in the first
// bytes of an input: from the first sync byte of a candidate size, at least 5
// consecutive unit starts (all those in the data when it is shorter) must
// carry one, and one whole packet must be present. The size with the longest
// run (up to 32) wins, 188 before 192 before 204 on a tie.
PacketFormat detectPacketFormat(const std::uint8_t* data, std::size_t size);

// Whether data (the start of an input, the whole of it when complete) reads
// as sections placed back to back, each from its table_id with 0xFF stuffing
// allowed between them: at least one whole section, every section inside
// the data (only the last may be cut where an incomplete start ends), and
// every CRC_32 (long-header sections and the TOT) correct.
bool looksLikeSections(const std::uint8_t* data, std::size_t size, bool complete);

struct ReadReport {
    PacketFormat format;
    std::uint64_t bytes = 0;
    std::uint64_t packets = 0;
    std::uint64_t syncLosses = 0;    // places where the sync byte was missing and had to be searched
    std::uint64_t trailingBytes = 0; // bytes of an incomplete last packet
};

class TsReader {
public:
    // fd is read until end of file and not closed. unitSize 0 detects it.
    TsReader(int fd, std::size_t unitSize = 0, std::size_t blockSize = 4u << 20);
    ~TsReader();
    TsReader(const TsReader&) = delete;
    TsReader& operator=(const TsReader&) = delete;

    // Bytes already read from fd (to tell what the input is), handed over
    // before run().
    void prime(const std::uint8_t* data, std::size_t size);

    // Runs the whole input through demux. progress (if set) is called with
    // the bytes read so far after every block. Returns false with error()
    // set when the input cannot be read or is not a transport stream; a
    // truncated last packet is reported in the report, not as a failure.
    bool run(SectionDemux& demux, const std::function<void(std::uint64_t)>& progress = {});

    const ReadReport& report() const { return m_report; }
    const std::string& error() const { return m_error; }

private:
    bool fill();
    // A regular file is mapped whole instead of read block by block: the
    // packets are handed over where the page cache holds them.
    void mapInput();
    // Position of the next place where sync bytes repeat, or npos if the
    // buffered data does not decide it yet.
    std::size_t findSync(std::size_t from) const;

    int m_fd;
    std::size_t m_unitSize;
    // Left uninitialised: opening an input costs nothing whatever the block size.
    std::unique_ptr<std::uint8_t[]> m_buffer;
    std::size_t m_bufferSize;
    // The bytes being walked: m_buffer, or the mapped file.
    std::uint8_t* m_data;
    void* m_mapping = nullptr;
    std::size_t m_mappingSize = 0;
    std::size_t m_have = 0;
    std::size_t m_position = 0;
    bool m_eof = false;
    ReadReport m_report;
    std::string m_error;
};

} // namespace VuroTools

#endif
