// Host stand-in for the platform layer's mutexes; the design is described in
// VuroPal.h: token handles and one process-wide recursive lock.
#include <VuroPal.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

namespace {

class SerialisationDomain {
public:
    void lock()
    {
        const std::thread::id self = std::this_thread::get_id();
        std::unique_lock<std::mutex> guard(m_mutex);
        if (m_depth > 0 && m_owner == self) {
            ++m_depth;
            return;
        }
        m_released.wait(guard, [this] { return m_depth == 0; });
        m_owner = self;
        m_depth = 1;
    }

    bool unlock()
    {
        std::lock_guard<std::mutex> guard(m_mutex);
        if (m_depth == 0 || m_owner != std::this_thread::get_id())
            return false;
        if (--m_depth == 0) {
            m_owner = std::thread::id();
            m_released.notify_one();
        }
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_released;
    std::thread::id m_owner;
    unsigned long m_depth = 0;
};

SerialisationDomain& domain()
{
    static SerialisationDomain instance;
    return instance;
}

std::atomic<std::uintptr_t> g_nextToken{1};

} // namespace

extern "C" {

VUROMutex VUROMutex_create(unsigned int /*attributes*/)
{
    std::uintptr_t token = g_nextToken.fetch_add(1, std::memory_order_relaxed);
    if (token == 0) // wrapped: 0 would read as "no handle"
        token = g_nextToken.fetch_add(1, std::memory_order_relaxed);
    return reinterpret_cast<VUROMutex>(token);
}

int VUROMutex_lock(VUROMutex /*mutex*/)
{
    domain().lock();
    return 0;
}

int VUROMutex_unlock(VUROMutex /*mutex*/)
{
    return domain().unlock() ? 0 : -1;
}

int VUROMutex_destroy(VUROMutex* mutex)
{
    if (!mutex || !*mutex)
        return -1;
    *mutex = nullptr;
    return 0;
}

} // extern "C"
