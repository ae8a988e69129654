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

// What only the lock protects; the unlocked steps between make it likely that a fault shows.
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

TEST(MutexContention, HundredsOfThreadsNeverMeet)
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
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(counter.meetings, 0);
    EXPECT_EQ(counter.value, long(kThreads) * kRounds);
    EXPECT_EQ(counter.mutex.TryLock(), 0U);
    EXPECT_EQ(counter.mutex.Unlock(), 0U);
}

// Waiters of all three kinds share the one signal of each unlock.
TEST(MutexContention, EveryWayOfLockingExcludesTheOthers)
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
    EXPECT_EQ(wrongCodes, 0);
    EXPECT_EQ(counter.meetings, 0);
    EXPECT_EQ(counter.value, locked);
    EXPECT_GE(locked, long(kThreads) / 3 * kRounds);
}

TEST(MutexContention, ScopedLocksGiveTheSame)
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
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(counter.meetings, 0);
    EXPECT_EQ(counter.value, long(kThreads) * kRounds);
}

TEST(MutexContention, NobodyUnlocksWhatAnotherHolds)
{
    GMutex mutex;
    std::atomic<int> robberies{0};
    InThreads(kThreads, [&](int index) {
        for (int round = 0; round < kRounds; ++round) {
            if (index % 2 == 0) {
                if (mutex.Unlock() != GMutex::kMutexDeadlockErr) ++robberies;
                continue;
            }
            if (mutex.Lock() != 0 || mutex.Unlock() != 0) ++robberies;
        }
    });
    EXPECT_EQ(robberies, 0);
}

}  // namespace
