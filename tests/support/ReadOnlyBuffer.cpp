#include "ReadOnlyBuffer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

namespace VuroTest {

ReadOnlyBuffer::ReadOnlyBuffer(const Bytes& bytes) : m_size(static_cast<std::uint32_t>(bytes.size()))
{
    const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t dataPages = (bytes.size() + page - 1) / page + 1;
    m_mappingLength = (dataPages + 1) * page;
    m_mapping = mmap(nullptr, m_mappingLength, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m_mapping == MAP_FAILED)
        throw std::runtime_error("mmap failed");
    std::uint8_t* guard = static_cast<std::uint8_t*>(m_mapping) + dataPages * page;
    m_data = guard - bytes.size();
    if (!bytes.empty())
        std::memcpy(m_data, bytes.data(), bytes.size());
    if (mprotect(m_mapping, dataPages * page, PROT_READ) != 0 || mprotect(guard, page, PROT_NONE) != 0)
        throw std::runtime_error("mprotect failed");
}

ReadOnlyBuffer::~ReadOnlyBuffer()
{
    munmap(m_mapping, m_mappingLength);
}

} // namespace VuroTest
