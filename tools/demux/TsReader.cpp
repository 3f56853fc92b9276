#include "TsReader.h"

#include <cerrno>
#include <algorithm>
#include <cstring>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <VuroISDBT.h>

namespace VuroTools {

namespace {

constexpr std::size_t kUnitSizes[] = {188, 192, 204};
constexpr std::size_t kDetectPackets = 32;
// Consecutive sync bytes that make a unit size certain (fewer when the data is shorter).
constexpr std::size_t kConvincingPackets = 5;
constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);
constexpr std::size_t kPrefetchPackets = 32;
// Bytes of a mapped input walked between two progress reports.
constexpr std::size_t kProgressSlice = std::size_t(64) << 20;

// Consecutive unit starts from offset that carry the sync byte, or 0 if
// fewer than the data can show convincingly.
std::size_t verifiedUnits(const std::uint8_t* data, std::size_t size, std::size_t offset, std::size_t unitSize)
{
    std::size_t count = 0;
    for (std::size_t at = offset; at < size && count < kDetectPackets && data[at] == TS_SYNC_BYTE; at += unitSize)
        ++count;
    const std::size_t available = (size - offset + unitSize - 1) / unitSize;
    return count >= std::min(available, kConvincingPackets) ? count : 0;
}

} // namespace

PacketFormat detectPacketFormat(const std::uint8_t* data, std::size_t size)
{
    PacketFormat best;
    std::size_t bestCount = 0;
    for (std::size_t unitSize : kUnitSizes) {
        for (std::size_t offset = 0; offset < unitSize && offset + TS_PACKET_SIZE <= size; ++offset) {
            const std::size_t count = verifiedUnits(data, size, offset, unitSize);
            if (count > bestCount) {
                bestCount = count;
                best.unitSize = unitSize;
                best.firstSync = offset;
            }
            if (count > 0)
                break; // a later offset of the same size only verifies what this one skipped
        }
    }
    return best;
}

bool looksLikeSections(const std::uint8_t* data, std::size_t size, bool complete)
{
    std::size_t whole = 0;
    std::size_t at = 0;
    while (at < size) {
        if (data[at] == 0xFF) {
            ++at;
            continue;
        }
        if (size - at < 3)
            return !complete && whole > 0;
        const std::size_t length = 3 + (((data[at + 1] & 0x0F) << 8) | data[at + 2]);
        if (length > size - at)
            return !complete && whole > 0;
        const bool hasCrc = (data[at + 1] & 0x80) || data[at] == 0x73;
        if (hasCrc && (length < 7 || Vuro::ISDBTUtils::getSectionCRC32(const_cast<std::uint8_t*>(data + at),
                                                                         static_cast<Vuro::U32>(length)) != 0))
            return false;
        ++whole;
        at += length;
    }
    return whole > 0;
}

void TsReader::prime(const std::uint8_t* data, std::size_t size)
{
    if (m_bufferSize < size) {
        m_buffer.reset(new std::uint8_t[size]);
        m_bufferSize = size;
    }
    std::memcpy(m_buffer.get(), data, size);
    m_data = m_buffer.get();
    m_have = size;
    m_position = 0;
    m_report.bytes += size;
}

TsReader::TsReader(int fd, std::size_t unitSize, std::size_t blockSize)
    : m_fd(fd),
      m_unitSize(unitSize),
      m_buffer(new std::uint8_t[blockSize < 4096 ? 4096 : blockSize]),
      m_bufferSize(blockSize < 4096 ? 4096 : blockSize),
      m_data(m_buffer.get())
{
}

TsReader::~TsReader()
{
    if (m_mapping)
        ::munmap(m_mapping, m_mappingSize);
}

void TsReader::mapInput()
{
    struct stat status;
    if (::fstat(m_fd, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size <= 0)
        return;
    // The primed bytes are the ones just before the file position.
    const off_t position = ::lseek(m_fd, 0, SEEK_CUR);
    if (position < 0 || static_cast<std::uint64_t>(position) < m_have ||
        static_cast<std::uint64_t>(position) > static_cast<std::uint64_t>(status.st_size))
        return;
    const std::size_t size = static_cast<std::size_t>(status.st_size);
    // Read-only: the demultiplexer only reads packets (it copies the section
    // bytes into its own buffers before handing them on).
    void* mapping = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, m_fd, 0);
    if (mapping == MAP_FAILED)
        return;
    ::madvise(mapping, size, MADV_SEQUENTIAL);
    const std::size_t start = static_cast<std::size_t>(position) - m_have;
    if (m_have && std::memcmp(static_cast<std::uint8_t*>(mapping) + start, m_buffer.get(), m_have) != 0) {
        ::munmap(mapping, size); // the file changed under the primed bytes: read it as before
        return;
    }
    m_mapping = mapping;
    m_mappingSize = size;
    m_data = static_cast<std::uint8_t*>(mapping) + start;
    m_report.bytes += size - static_cast<std::size_t>(position);
    m_have = size - start;
    m_position = 0;
    m_eof = true;
}

bool TsReader::fill()
{
    if (m_position > m_have)
        m_position = m_have; // a 204-byte unit's trailer ran past the data read so far: nothing to keep
    // Keep the unprocessed tail, then read until the buffer is full or the input ends.
    std::memmove(m_buffer.get(), m_buffer.get() + m_position, m_have - m_position);
    m_have -= m_position;
    m_position = 0;
    while (!m_eof && m_have < m_bufferSize) {
        const ssize_t got = ::read(m_fd, m_buffer.get() + m_have, m_bufferSize - m_have);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            m_error = std::string("cannot read the input: ") + std::strerror(errno);
            return false;
        }
        if (got == 0)
            m_eof = true;
        m_have += static_cast<std::size_t>(got);
        m_report.bytes += static_cast<std::uint64_t>(got);
    }
    return true;
}

std::size_t TsReader::findSync(std::size_t from) const
{
    const std::size_t unit = m_report.format.unitSize;
    for (std::size_t at = from; at < m_have; ++at) {
        if (m_data[at] != TS_SYNC_BYTE)
            continue;
        // Two following unit starts must agree where they lie in the data;
        // at the end of the input fewer are enough.
        bool agrees = true;
        for (std::size_t k = 1; k <= 2 && agrees; ++k) {
            const std::size_t next = at + k * unit;
            if (next >= m_have) {
                if (!m_eof)
                    return kNotFound; // undecided until more data is read
                break;
            }
            agrees = m_data[next] == TS_SYNC_BYTE;
        }
        if (agrees)
            return at;
    }
    return kNotFound;
}

bool TsReader::run(SectionDemux& demux, const std::function<void(std::uint64_t)>& progress)
{
    mapInput();
    if (!m_mapping && !fill())
        return false;
    if (m_have < TS_PACKET_SIZE) {
        m_error = m_have == 0 ? "the input is empty"
                              : "truncated input: " + std::to_string(m_have) +
                                    " bytes, less than one 188-byte transport stream packet";
        return false;
    }
    m_report.format = detectPacketFormat(m_data, m_have);
    if (m_unitSize != 0) {
        // A forced unit size: the first sync byte still has to be found.
        m_report.format.unitSize = m_unitSize;
        std::size_t at = 0;
        while (at + TS_PACKET_SIZE <= m_have && verifiedUnits(m_data, m_have, at, m_unitSize) == 0)
            ++at;
        if (at + TS_PACKET_SIZE > m_have) {
            m_error = "not a transport stream of " + std::to_string(m_unitSize) + "-byte packets";
            return false;
        }
        m_report.format.firstSync = at;
    }
    if (m_report.format.unitSize == 0) {
        m_error = "not a transport stream: no sync bytes (0x47) repeating every 188, 192 or 204 bytes";
        return false;
    }
    const std::size_t unit = m_report.format.unitSize;
    m_position = m_report.format.firstSync;
    bool inSync = true;

    for (;;) {
        std::uint8_t* const data = m_data;
        // Whole units while more input follows, whole 188-byte packets at its end.
        const std::size_t need = m_eof ? TS_PACKET_SIZE : unit;
        // A mapped input is all there from the start: it is walked in slices
        // so that progress is still reported between them.
        std::size_t stop = m_have;
        if (m_mapping && progress && m_have - m_position > kProgressSlice)
            stop = m_position + kProgressSlice;
        while (m_position + need <= stop) {
            std::uint8_t* const packet = data + m_position;
            // Packet headers lie 188 bytes apart, a stride the hardware
            // prefetchers lose at every page: ask for the header a few packets
            // ahead (a prefetch past the end of the data is harmless).
            __builtin_prefetch(packet + kPrefetchPackets * unit);
            if (packet[0] != TS_SYNC_BYTE) {
                if (inSync) {
                    ++m_report.syncLosses;
                    inSync = false;
                }
                const std::size_t at = findSync(m_position + 1);
                if (at == kNotFound) {
                    // Nothing decided in the data buffered: keep only the tail
                    // that may still hold the next sync byte (all of it is
                    // garbage at the end of the input).
                    if (m_eof)
                        m_position = m_have;
                    else if (m_have > 3 * unit && m_have - 3 * unit > m_position)
                        m_position = m_have - 3 * unit;
                    break;
                }
                m_position = at;
                continue;
            }
            inSync = true;
            demux.packet(packet);
            ++m_report.packets;
            m_position += unit;
        }
        if (stop != m_have) {
            progress(m_position);
            continue;
        }
        if (m_eof)
            break;
        if (!fill())
            return false;
        if (progress)
            progress(m_report.bytes);
    }
    if (m_position < m_have && inSync)
        m_report.trailingBytes = m_have - m_position;
    return true;
}

} // namespace VuroTools
