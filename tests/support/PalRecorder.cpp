#include "PalRecorder.h"

#include <VuroPal.h>
#include <dlfcn.h>

#include <cstdlib>

namespace VuroTest {

PalRecorder& PalRecorder::instance()
{
    static PalRecorder recorder;
    return recorder;
}

std::vector<PalCall> PalRecorder::calls() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

void PalRecorder::clear()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
}

void PalRecorder::record(const PalCall& call)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.push_back(call);
}

} // namespace VuroTest

namespace {

template <class F>
F next(const char* name)
{
    void* symbol = dlsym(RTLD_NEXT, name);
    if (!symbol)
        std::abort();
    return reinterpret_cast<F>(symbol);
}

} // namespace

extern "C" {

VUROMutex VUROMutex_create(unsigned int attributes)
{
    static auto real = next<VUROMutex (*)(unsigned int)>("VUROMutex_create");
    VUROMutex handle = real(attributes);
    VuroTest::PalRecorder::instance().record({"create", handle, 0});
    return handle;
}

int VUROMutex_lock(VUROMutex mutex)
{
    static auto real = next<int (*)(VUROMutex)>("VUROMutex_lock");
    int result = real(mutex);
    VuroTest::PalRecorder::instance().record({"lock", mutex, result});
    return result;
}

int VUROMutex_unlock(VUROMutex mutex)
{
    static auto real = next<int (*)(VUROMutex)>("VUROMutex_unlock");
    int result = real(mutex);
    VuroTest::PalRecorder::instance().record({"unlock", mutex, result});
    return result;
}

int VUROMutex_destroy(VUROMutex* mutex)
{
    static auto real = next<int (*)(VUROMutex*)>("VUROMutex_destroy");
    void* before = mutex ? *mutex : nullptr;
    int result = real(mutex);
    VuroTest::PalRecorder::instance().record({"destroy", before, result});
    return result;
}

} // extern "C"
