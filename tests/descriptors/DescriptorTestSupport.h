// Shared by the descriptor tests.
#ifndef VURO_TESTS_DESCRIPTOR_TEST_SUPPORT_H
#define VURO_TESTS_DESCRIPTOR_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <descriptors/TISDBTDescriptor.h>

#include "../support/LogCapture.h"
#include "../support/SectionBuilder.h"

namespace VuroTest {

constexpr Vuro::U16 kOk = Vuro::TISDBTTable::ERROR_OK;
constexpr Vuro::U16 kDescriptorLength = Vuro::TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH;
constexpr Vuro::U16 kDataLength = Vuro::TISDBTTable::ERROR_INVALID_DATA_LENGTH;
constexpr Vuro::U16 kString = Vuro::TISDBTTable::ERROR_INVALID_STRING;
// Log prefixes shared by many descriptors: the header check and the string reader.
const std::string kHeaderLine = "ISDBTUtils: TISDBTDescriptor::parseCommonHeader: ";
const std::string kStringLine =
    "ISDBTUils: ParserUtils::parseStr: ERROR: String length exceeds available data length: ";

// Parses a descriptor of class D held in an exact buffer: `body` under D's own
// tag, or the `whole` bytes handed with dataLength `length` and the end of the
// buffer as the limit (length 0: the buffer size, no limit). The buffer is
// kept alive with the result, which borrows it.
template <class D>
struct Parsed {
    explicit Parsed(const Bytes& body) : Parsed(descriptor(D::DESCRIPTOR_TAG, body), 0) {}
    Parsed(const Bytes& whole, Vuro::U32 length)
        : data(whole),
          object(length ? D::parse(data.data(), length, &parsedLength, &code, data.data() + data.size())
                        : D::parse(data.data(), data.size(), &parsedLength, &code))
    {
    }
    // Decoded, with ERROR_OK stored and `length` reported (0xDEAD: none written).
    ::testing::AssertionResult decoded(Vuro::U32 length) const
    {
        if (!object || code != kOk || parsedLength != length)
            return ::testing::AssertionFailure() << "object " << object.get() << ", code " << code << ", length "
                                                 << parsedLength << " (expected " << length << ")";
        return ::testing::AssertionSuccess();
    }
    // Refused with `expected` stored.
    ::testing::AssertionResult refused(Vuro::U16 expected) const
    {
        if (object || code != expected)
            return ::testing::AssertionFailure() << "object " << object.get() << ", code " << code;
        return ::testing::AssertionSuccess();
    }

    ExactBuffer data;
    Vuro::U32 parsedLength = 0xDEAD;
    Vuro::U16 code = 0xBEEF;
    std::unique_ptr<D> object; // declared last: parsed once the fields above are set
};

// D refuses the whole bytes (handed as Parsed does) with `code`, logging exactly `lines`.
template <class D>
void expectRefusedWithin(const Bytes& whole, Vuro::U32 length, Vuro::U16 code, const std::vector<std::string>& lines)
{
    LogCapture log;
    EXPECT_TRUE(Parsed<D>(whole, length).refused(code));
    EXPECT_WARNINGS(log, lines);
}

// D refuses `body` under its own tag with `code`, logging exactly `lines`.
template <class D>
void expectRefused(const Bytes& body, Vuro::U16 code, const std::vector<std::string>& lines)
{
    expectRefusedWithin<D>(descriptor(D::DESCRIPTOR_TAG, body), 0, code, lines);
}

// An owned byte block as text, "<null>" for none.
inline std::string block(const Vuro::U8* data, Vuro::U32 size)
{
    return data ? std::string(reinterpret_cast<const char*>(data), size) : std::string("<null>");
}

} // namespace VuroTest

#endif
