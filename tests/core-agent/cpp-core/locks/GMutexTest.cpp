#include "GMutex.h"

#include <type_traits>

#include "HeldElsewhere.h"

namespace {

constexpr unsigned int kBusy = 0x0100100C;
constexpr unsigned int kDeadlock = 0x0100100B;
constexpr unsigned int kForEver = 0xFFFFFFFF;

static_assert(!std::is_copy_constructible_v<GMutex> && !std::is_copy_assignable_v<GMutex>);
static_assert(!std::is_convertible_v<GMutex*, GNoncopyable*>, "the base isn't public");

// What another thread gets from the operation.
template <class Operation>
unsigned int FromAnotherThread(Operation operation)
{
    return std::async(std::launch::async, operation).get();
}

TEST(Mutex, IsLockedAndUnlockedAgainAndAgain)
{
    GMutex mutex;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(mutex.Lock(), 0U);
        EXPECT_EQ(mutex.Unlock(), 0U);
    }
    EXPECT_EQ(FromAnotherThread([&] { return mutex.TryLock() | mutex.Unlock(); }), 0U);
}

TEST(Mutex, FreeOneIsHadInEveryWay)
{
    GMutex mutex;
    for (const unsigned int milliseconds : {0U, 1U, 10U, kForEver}) {
        EXPECT_EQ(mutex.TryLockWithTimeout(milliseconds), 0U);
        EXPECT_EQ(mutex.Unlock(), 0U);
    }
    EXPECT_EQ(mutex.TryLock(), 0U);
    EXPECT_EQ(mutex.Unlock(), 0U);
}

TEST(Mutex, HeldElsewhereIsBusyForTryLock)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(mutex.TryLock(), kBusy);
    EXPECT_EQ(mutex.TryLockWithTimeout(0), kBusy);
}

TEST(Mutex, HeldElsewhereIsBusyWhenTheTimeIsOver)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(mutex.TryLockWithTimeout(10), kBusy);
}

TEST(Mutex, SecondLockByTheOwnerFailsAtOnce)
{
    GMutex mutex;
    ASSERT_EQ(mutex.Lock(), 0U);
    EXPECT_EQ(mutex.Lock(), kDeadlock);
    EXPECT_EQ(mutex.TryLock(), kDeadlock);
    EXPECT_EQ(mutex.TryLockWithTimeout(1000000), kDeadlock);
    EXPECT_EQ(mutex.TryLockWithTimeout(kForEver), kDeadlock);
    EXPECT_EQ(mutex.Unlock(), 0U);
}

TEST(Mutex, FailedSecondLockIsNotCounted)
{
    GMutex mutex;
    ASSERT_EQ(mutex.Lock(), 0U);
    ASSERT_EQ(mutex.Lock(), kDeadlock);
    EXPECT_EQ(FromAnotherThread([&] { return mutex.TryLock(); }), kBusy);
    EXPECT_EQ(mutex.Unlock(), 0U);
    EXPECT_EQ(FromAnotherThread([&] { return mutex.TryLock() | mutex.Unlock(); }), 0U);
}

TEST(Mutex, UnlockOfAFreeOneFails)
{
    GMutex mutex;
    EXPECT_EQ(mutex.Unlock(), kDeadlock);
    EXPECT_EQ(mutex.Lock(), 0U);
    EXPECT_EQ(mutex.Unlock(), 0U);
    EXPECT_EQ(mutex.Unlock(), kDeadlock);
}

TEST(Mutex, UnlockByAnotherThreadFailsAndChangesNothing)
{
    GMutex mutex;
    const HeldElsewhere holder(mutex);
    EXPECT_EQ(mutex.Unlock(), kDeadlock);
    EXPECT_EQ(mutex.TryLock(), kBusy);
}

TEST(Mutex, WaiterGetsItWhenItIsReleased)
{
    GMutex mutex;
    HeldElsewhere holder(mutex);
    std::future<unsigned int> waiter = std::async(std::launch::async, [&] {
        const unsigned int result = mutex.Lock();
        return result | mutex.Unlock();
    });
    holder.Release();
    EXPECT_EQ(waiter.get(), 0U);
}

TEST(Mutex, WaiterWithALongTimeoutGetsItWhenItIsReleased)
{
    GMutex mutex;
    HeldElsewhere holder(mutex);
    std::future<unsigned int> waiter = std::async(std::launch::async, [&] {
        const unsigned int result = mutex.TryLockWithTimeout(0xFFFFFFFE);
        return result | mutex.Unlock();
    });
    holder.Release();
    EXPECT_EQ(waiter.get(), 0U);
}

}  // namespace
