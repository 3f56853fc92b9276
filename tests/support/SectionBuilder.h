#ifndef VURO_TESTS_SECTION_BUILDER_H
#define VURO_TESTS_SECTION_BUILDER_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace VuroTest {

using Bytes = std::vector<std::uint8_t>;

// Bitwise MPEG-2 CRC-32, written independently of the library's table-driven one.
std::uint32_t referenceCrc32(const std::uint8_t* data, std::size_t length);

Bytes concat(std::initializer_list<Bytes> parts);

// descriptor_tag, descriptor_length, body.
Bytes descriptor(std::uint8_t tag, const Bytes& body);

// Builds a private section byte by byte: the header fields, then the body;
// build() fills in section_length and appends a correct CRC_32.
class SectionBuilder {
public:
    explicit SectionBuilder(std::uint8_t tableId) : m_tableId(tableId) {}

    // table_id_extension, version_number, current_next_indicator, section numbers.
    SectionBuilder& longHeader(std::uint16_t extension, std::uint8_t version, bool current = true,
                               std::uint8_t sectionNumber = 0, std::uint8_t lastSectionNumber = 0);
    SectionBuilder& u8(std::uint8_t value);
    SectionBuilder& u16(std::uint16_t value);
    SectionBuilder& u32(std::uint32_t value);
    SectionBuilder& bytes(const Bytes& value);
    // 4 reserved bits + 12-bit length, then the loop bytes.
    SectionBuilder& loop(const Bytes& value);

    // section_syntax_indicator set for long headers; section_length counts the body and the CRC_32.
    Bytes build() const;
    // Same, but with section_length forced to a given value (the bytes are unchanged).
    Bytes buildWithSectionLength(std::uint16_t sectionLength) const;

private:
    std::uint8_t m_tableId;
    bool m_long = false;
    Bytes m_body;
};

// A heap copy of exactly the given bytes, so that AddressSanitizer reports any
// read one byte past the end.
class ExactBuffer {
public:
    explicit ExactBuffer(const Bytes& bytes);
    ~ExactBuffer();
    ExactBuffer(const ExactBuffer&) = delete;
    ExactBuffer& operator=(const ExactBuffer&) = delete;
    std::uint8_t* data() { return m_data; }
    std::uint32_t size() const { return m_size; }

private:
    std::uint8_t* m_data;
    std::uint32_t m_size;
};

} // namespace VuroTest

#endif
