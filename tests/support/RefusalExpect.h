#ifndef VURO_TESTS_REFUSAL_EXPECT_H
#define VURO_TESTS_REFUSAL_EXPECT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "SectionBuilder.h"

namespace VuroTest {

template <class T>
std::unique_ptr<T> owned(T* object)
{
    return std::unique_ptr<T>(object);
}

template <class T>
std::unique_ptr<T> owned(std::unique_ptr<T> object)
{
    return object;
}

// The bytes, in a buffer of exactly their size, are refused by parse
// (ExactBuffer&, U16* code), returning a raw or owning pointer, with the
// expected code. An object parsed against expectation is deleted.
template <class Parse>
::testing::AssertionResult refusedBy(Parse parse, const Bytes& bytes, std::uint16_t expected)
{
    ExactBuffer data(bytes);
    std::uint16_t code = 0;
    if (owned(parse(data, &code)))
        return ::testing::AssertionFailure() << "parsed";
    if (code != expected)
        return ::testing::AssertionFailure() << "code " << code << " instead of " << expected;
    return ::testing::AssertionSuccess();
}

} // namespace VuroTest

#endif
