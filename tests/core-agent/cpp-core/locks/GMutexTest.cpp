#include "GMutex.h"

#include <type_traits>

#include "HeldElsewhere.h"

namespace {

constexpr unsigned int kBusy = GLockable::kLockBusyErr;
constexpr unsigned int kDeadlock = GMutex::kMutexDeadlockErr;
constexpr unsigned int kWithoutLimit = 0xFFFFFFFF;

static_assert(!std::is_copy_constructible_v<GMutex> && !std::is_copy_assignable_v<GMutex>);
static_assert(!std::is_convertible_v<GMutex*, GNoncopyable*>, "the base isn't public");

// Runs the operation on another thread and returns its result.
template <class Operation>
unsigned int FromAnotherThread(Operation operation)
{
    return std::async(std::launch::async, operation).get();
}

TEST(Mutex, CanBeLockedAndUnlockedRepeatedly)
{
    GMutex mutex;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Lock());
        EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
    }
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              FromAnotherThread([&] { return mutex.TryLock() | mutex.Unlock(); }));
}

TEST(Mutex, FreeMutexIsLockedByEveryOperation)
{
    GMutex mutex;
    for (const unsigned int milliseconds : {0U, 1U, 10U, kWithoutLimit}) {
        EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.TryLockWithTimeout(milliseconds));
        EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
    }
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.TryLock());
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
}

TEST(Mutex, TryLockIsBusyIfAnotherThreadHoldsIt)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(kBusy, mutex.TryLock());
    EXPECT_EQ(kBusy, mutex.TryLockWithTimeout(0));
}

TEST(Mutex, TimeoutIsBusyIfAnotherThreadHoldsIt)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(kBusy, mutex.TryLockWithTimeout(10));
}

TEST(Mutex, SecondLockByTheOwnerFailsAtOnce)
{
    GMutex mutex;
    ASSERT_EQ(CoreErrorCodes::kSuccess, mutex.Lock());
    EXPECT_EQ(kDeadlock, mutex.Lock());
    EXPECT_EQ(kDeadlock, mutex.TryLock());
    EXPECT_EQ(kDeadlock, mutex.TryLockWithTimeout(1000000));
    EXPECT_EQ(kDeadlock, mutex.TryLockWithTimeout(kWithoutLimit));
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
}

TEST(Mutex, FailedSecondLockIsNotCounted)
{
    GMutex mutex;
    ASSERT_EQ(CoreErrorCodes::kSuccess, mutex.Lock());
    ASSERT_EQ(kDeadlock, mutex.Lock());
    EXPECT_EQ(kBusy, FromAnotherThread([&] { return mutex.TryLock(); }));
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              FromAnotherThread([&] { return mutex.TryLock() | mutex.Unlock(); }));
}

TEST(Mutex, UnlockOfAFreeMutexFails)
{
    GMutex mutex;
    EXPECT_EQ(kDeadlock, mutex.Unlock());
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Lock());
    EXPECT_EQ(CoreErrorCodes::kSuccess, mutex.Unlock());
    EXPECT_EQ(kDeadlock, mutex.Unlock());
}

TEST(Mutex, UnlockByAnotherThreadFailsAndChangesNothing)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(kDeadlock, mutex.Unlock());
    EXPECT_EQ(kBusy, mutex.TryLock());
}

TEST(Mutex, WaitingThreadLocksItWhenItIsReleased)
{
    GMutex mutex;
    HeldElsewhere holder(mutex);
    std::future<unsigned int> waiter = std::async(std::launch::async, [&] {
        const unsigned int result = mutex.Lock();
        return result | mutex.Unlock();
    });
    holder.Release();
    EXPECT_EQ(CoreErrorCodes::kSuccess, waiter.get());
}

TEST(Mutex, WaitingThreadWithATimeoutLocksItWhenItIsReleased)
{
    GMutex mutex;
    HeldElsewhere holder(mutex);
    std::future<unsigned int> waiter = std::async(std::launch::async, [&] {
        const unsigned int result = mutex.TryLockWithTimeout(0xFFFFFFFE);
        return result | mutex.Unlock();
    });
    holder.Release();
    EXPECT_EQ(CoreErrorCodes::kSuccess, waiter.get());
}

}  // namespace
