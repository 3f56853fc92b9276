#include <gtest/gtest.h>

#include <VuroPal.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

#include "../support/PalRecorder.h"

using namespace VuroTest;

namespace {

// The event table's sequence: lock what the shared variable holds, replace
// both shared handles with new ones, unlock the (never locked) new one.
// Destruction later destroys whatever the variables hold at that time.
VUROMutex g_first = nullptr;
VUROMutex g_second = nullptr;

void eventTableParse(std::atomic<int>& inside, std::atomic<int>& overlap)
{
    VUROMutex_lock(g_second);
    if (inside.fetch_add(1) != 0)
        overlap.fetch_add(1);
    g_first = VUROMutex_create(0);
    g_second = VUROMutex_create(0);
    std::this_thread::sleep_for(std::chrono::microseconds(200));
    inside.fetch_sub(1);
    VUROMutex_unlock(g_second);
}

} // namespace

TEST(PlatformMutex, HandlesAreDistinctAndDestroyNullsTheVariable)
{
    VUROMutex a = VUROMutex_create(0);
    VUROMutex b = VUROMutex_create(0);
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_NE(a, b);
    EXPECT_EQ(VUROMutex_destroy(&a), 0);
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(VUROMutex_destroy(&a), -1); // twice: refused, harmless
    EXPECT_EQ(VUROMutex_destroy(nullptr), -1);
    EXPECT_EQ(VUROMutex_destroy(&b), 0);
}

TEST(PlatformMutex, LockOneHandleUnlockAnotherOnOneThread)
{
    PalRecorder::instance().clear();
    VUROMutex shared = nullptr; // first parse: nothing created yet
    ASSERT_EQ(VUROMutex_lock(shared), 0);
    VUROMutex created = VUROMutex_create(0);
    EXPECT_EQ(VUROMutex_unlock(created), 0);
    // The next parse locks the handle that was unlocked without being locked.
    ASSERT_EQ(VUROMutex_lock(created), 0);
    EXPECT_EQ(VUROMutex_unlock(created), 0);
    EXPECT_EQ(VUROMutex_unlock(created), -1); // not held any more
    EXPECT_EQ(VUROMutex_destroy(&created), 0);

    const std::vector<PalCall> calls = PalRecorder::instance().calls();
    ASSERT_EQ(calls.size(), 7u);
    EXPECT_EQ(calls[0].function, "lock");
    EXPECT_EQ(calls[0].handle, nullptr);
    EXPECT_EQ(calls[1].function, "create");
    EXPECT_EQ(calls[2].function, "unlock");
    EXPECT_EQ(calls[2].handle, calls[1].handle);
    EXPECT_EQ(calls[6].function, "destroy");
    EXPECT_EQ(calls[6].result, 0);
}

TEST(PlatformMutex, UnlockFromAThreadThatDoesNotHoldTheLockChangesNothing)
{
    VUROMutex handle = VUROMutex_create(0);
    ASSERT_EQ(VUROMutex_lock(handle), 0);
    int foreign = 0;
    std::thread([&] { foreign = VUROMutex_unlock(handle); }).join();
    EXPECT_EQ(foreign, -1);
    std::atomic<bool> acquired{false};
    std::thread waiter([&] {
        VUROMutex_lock(handle);
        acquired = true;
        VUROMutex_unlock(handle);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(acquired.load());
    EXPECT_EQ(VUROMutex_unlock(handle), 0);
    waiter.join();
    EXPECT_TRUE(acquired.load());
    VUROMutex_destroy(&handle);
}

TEST(PlatformMutex, EventTableSequenceSerialisesConcurrentCallersWithoutDeadlock)
{
    std::atomic<int> inside{0};
    std::atomic<int> overlap{0};
    auto worker = [&] {
        for (int i = 0; i < 200; ++i) {
            eventTableParse(inside, overlap);
            if (i % 7 == 0) { // a table being destroyed: destroys the current handles
                VUROMutex_lock(g_second);
                VUROMutex_destroy(&g_first);
                VUROMutex_destroy(&g_second);
                VUROMutex_unlock(g_second);
            }
        }
    };
    auto done = std::async(std::launch::async, [&] {
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t)
            threads.emplace_back(worker);
        for (std::thread& thread : threads)
            thread.join();
    });
    ASSERT_EQ(done.wait_for(std::chrono::seconds(60)), std::future_status::ready) << "deadlock";
    EXPECT_EQ(overlap.load(), 0);
    VUROMutex_destroy(&g_first);
    VUROMutex_destroy(&g_second);
}
