#ifndef VURO_TESTS_READ_ONLY_BUFFER_H
#define VURO_TESTS_READ_ONLY_BUFFER_H

#include <cstddef>
#include <cstdint>

#include "SectionBuilder.h"

namespace VuroTest {

// A copy of the bytes in memory pages made read-only, ending exactly where an
// inaccessible guard page begins: a parse that writes into its input, or
// reads one byte past it, faults.
class ReadOnlyBuffer {
public:
    explicit ReadOnlyBuffer(const Bytes& bytes);
    ~ReadOnlyBuffer();
    ReadOnlyBuffer(const ReadOnlyBuffer&) = delete;
    ReadOnlyBuffer& operator=(const ReadOnlyBuffer&) = delete;
    // Parsers take U8*; the pages behind it are read-only all the same.
    std::uint8_t* data() const { return m_data; }
    std::uint32_t size() const { return m_size; }

private:
    void* m_mapping;
    std::size_t m_mappingLength;
    std::uint8_t* m_data;
    std::uint32_t m_size;
};

} // namespace VuroTest

#endif
