#include "CountingAllocator.h"

namespace VuroBench {

namespace {
bool g_counting = false;
AllocationCount g_count;
} // namespace

namespace detail {

void startCounting()
{
    g_count = AllocationCount{};
    g_counting = true;
}

AllocationCount stopCounting()
{
    g_counting = false;
    return g_count;
}

} // namespace detail

#ifdef VURO_BENCH_COUNT_ALLOCATIONS

bool canCountAllocations()
{
    return true;
}

} // namespace VuroBench

// The program's malloc family interposes on glibc's for the whole process
// (the library's and libdvbv5's calls included) and forwards to it.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size)
{
    if (VuroBench::g_counting) {
        ++VuroBench::g_count.blocks;
        VuroBench::g_count.bytes += size;
    }
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    if (VuroBench::g_counting) {
        ++VuroBench::g_count.blocks;
        VuroBench::g_count.bytes += count * size;
    }
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size)
{
    if (VuroBench::g_counting) {
        ++VuroBench::g_count.blocks;
        VuroBench::g_count.bytes += size;
    }
    return __libc_realloc(block, size);
}
}

#else

bool canCountAllocations()
{
    return false;
}

} // namespace VuroBench

#endif
