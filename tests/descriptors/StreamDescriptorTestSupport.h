// Shared by the stream and content-protection descriptor tests.
#ifndef VURO_TESTS_STREAM_DESCRIPTOR_TEST_SUPPORT_H
#define VURO_TESTS_STREAM_DESCRIPTOR_TEST_SUPPORT_H

#include <memory>
#include <string>

#include "../support/SectionBuilder.h"

namespace VuroTest {

// Parses body as a whole descriptor of class D held in an exact buffer; the
// buffer is kept alive with the result, which borrows it.
template <class D>
struct Parsed {
    explicit Parsed(const Bytes& body)
        : data(descriptor(D::DESCRIPTOR_TAG, body)), object(D::parse(data.data(), data.size(), &parsedLength, &code))
    {
    }
    ExactBuffer data;
    Vuro::U32 parsedLength = 0xDEAD;
    Vuro::U16 code = 0xBEEF;
    std::unique_ptr<D> object; // declared last: parsed once the fields above are set
};

// An owned byte block as text, "<null>" for none.
inline std::string block(const Vuro::U8* data, Vuro::U8 size)
{
    return data ? std::string(reinterpret_cast<const char*>(data), size) : std::string("<null>");
}

} // namespace VuroTest

#endif
