// Heap allocations counted around a piece of code: every malloc, calloc and
// realloc of the process (operator new included) while a counting scope is
// open. Not available in sanitizer builds, whose allocator owns malloc.
#ifndef VURO_BENCH_COUNTING_ALLOCATOR_H
#define VURO_BENCH_COUNTING_ALLOCATOR_H

#include <cstddef>
#include <cstdint>

namespace VuroBench {

struct AllocationCount {
    std::uint64_t blocks = 0;
    std::uint64_t bytes = 0;
};

// FALSE when the build cannot count (the sanitizers replace malloc).
bool canCountAllocations();

// Counts the allocations of fn().
template <class Fn>
AllocationCount countAllocations(Fn fn);

namespace detail {
void startCounting();
AllocationCount stopCounting();
} // namespace detail

template <class Fn>
AllocationCount countAllocations(Fn fn)
{
    detail::startCounting();
    fn();
    return detail::stopCounting();
}

} // namespace VuroBench

#endif
