#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "GBlockingLockStrategy.h"
#include "GMutex.h"
#include "GScopedLock.h"
#include "InThreads.h"

namespace {

constexpr int kThreads = 300;
constexpr int kRounds = 50;

// A counter that only the mutex protects. Add yields between reading and writing, so that a fault
// of the mutex is likely to show.
struct Counter {
    GMutex mutex;
    long value = 0;
    std::atomic<int> inside{0};
    std::atomic<int> meetings{0};

    void Add()
    {
        if (inside.fetch_add(1) != 0) ++meetings;
        const long before = value;
        std::this_thread::yield();
        value = before + 1;
        --inside;
    }
};

TEST(MutexContention, HundredsOfThreadsExcludeEachOther)
{
    Counter counter;
    std::atomic<int> failures{0};
    InThreads(kThreads, [&](int) {
        for (int round = 0; round < kRounds; ++round) {
            if (counter.mutex.Lock() != 0) ++failures;
            counter.Add();
            if (counter.mutex.Unlock() != 0) ++failures;
        }
    });
    EXPECT_EQ(0, failures);
    EXPECT_EQ(0, counter.meetings);
    EXPECT_EQ(long(kThreads) * kRounds, counter.value);
    EXPECT_EQ(CoreErrorCodes::kSuccess, counter.mutex.TryLock());
    EXPECT_EQ(CoreErrorCodes::kSuccess, counter.mutex.Unlock());
}

// Each unlock signals one waiting thread, of whichever kind.
TEST(MutexContention, AllLockOperationsExcludeEachOther)
{
    Counter counter;
    std::atomic<long> locked{0};
    std::atomic<int> wrongCodes{0};
    InThreads(kThreads, [&](int index) {
        for (int round = 0; round < kRounds; ++round) {
            const unsigned int result = index % 3 == 0   ? counter.mutex.Lock()
                                        : index % 3 == 1 ? counter.mutex.TryLock()
                                                         : counter.mutex.TryLockWithTimeout(1);
            if (result == GLockable::kLockBusyErr && index % 3 != 0) continue;
            if (result != 0) ++wrongCodes;
            counter.Add();
            ++locked;
            if (counter.mutex.Unlock() != 0) ++wrongCodes;
        }
    });
    EXPECT_EQ(0, wrongCodes);
    EXPECT_EQ(0, counter.meetings);
    EXPECT_EQ(counter.value, locked);
    EXPECT_GE(locked, long(kThreads) / 3 * kRounds);
}

TEST(MutexContention, ScopedLocksExcludeEachOther)
{
    Counter counter;
    std::atomic<int> failures{0};
    InThreads(kThreads, [&](int) {
        for (int round = 0; round < kRounds; ++round) {
            const GScopedLock lock(counter.mutex, true, new GBlockingLockStrategy);
            if (!lock.IsLocked()) ++failures;
            counter.Add();
        }
    });
    EXPECT_EQ(0, failures);
    EXPECT_EQ(0, counter.meetings);
    EXPECT_EQ(long(kThreads) * kRounds, counter.value);
}

TEST(MutexContention, ThreadsCannotUnlockWhatAnotherHolds)
{
    GMutex mutex;
    std::atomic<int> wrongCodes{0};
    InThreads(kThreads, [&](int index) {
        for (int round = 0; round < kRounds; ++round) {
            if (index % 2 == 0) {
                if (mutex.Unlock() != GMutex::kMutexDeadlockErr) ++wrongCodes;
                continue;
            }
            if (mutex.Lock() != 0 || mutex.Unlock() != 0) ++wrongCodes;
        }
    });
    EXPECT_EQ(0, wrongCodes);
}

}  // namespace
