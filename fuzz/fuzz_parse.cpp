// libFuzzer target: the first byte selects a parse entry point, which receives
// the remaining bytes in a heap buffer of exactly that size.
#include <android/log_host.h>

#include <cstring>

#include "FuzzEntries.h"

namespace {

void discard(int, const char*, const char*, void*)
{
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    android_log_host_set_sink(&discard, nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const std::vector<VuroFuzz::Entry>& all = VuroFuzz::entries();
    const VuroFuzz::Entry& entry = all[data[0] % all.size()];
    const size_t length = size - 1;
    Vuro::U8* copy = new Vuro::U8[length ? length : 1];
    if (length)
        std::memcpy(copy, data + 1, length);
    entry.run(copy, static_cast<Vuro::U32>(length));
    delete[] copy;
    return 0;
}
