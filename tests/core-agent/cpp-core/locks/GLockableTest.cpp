#include "GLockable.h"

#include <gmock/gmock.h>

#include <vector>

#include "ScriptedSystemCalls.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned int kBusy = GLockable::kLockBusyErr;

// Busy for `busyTries` tries, then returns `result`.
class ScriptedLockable : public GLockable {
public:
    unsigned int Lock() override { return CoreErrorCodes::kNotImplemented; }
    unsigned int TryLock() override { return tries++ < busyTries ? kBusy : result; }
    unsigned int Unlock() override { return CoreErrorCodes::kSuccess; }

    int tries = 0;
    int busyTries = 0;
    unsigned int result = CoreErrorCodes::kSuccess;
};

class PollingLockable : public testing::Test {
protected:
    PollingLockable() { ScriptedSystemCalls::Current() = ScriptedSystemCalls(); }

    ScriptedLockable lockable;
    const std::vector<unsigned int>& sleeps = ScriptedSystemCalls::Current().sleeps;
};

TEST_F(PollingLockable, FreeLockableIsLockedWithoutSleeping)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, lockable.TryLockWithTimeout(1000));
    EXPECT_EQ(1, lockable.tries);
    EXPECT_THAT(sleeps, IsEmpty());
}

TEST_F(PollingLockable, TimeoutOfZeroTriesOnce)
{
    lockable.busyTries = 9;
    EXPECT_EQ(kBusy, lockable.TryLockWithTimeout(0));
    EXPECT_EQ(1, lockable.tries);
    EXPECT_THAT(sleeps, IsEmpty());
}

TEST_F(PollingLockable, SleepsFiftyMillisecondsAndTheRemainder)
{
    lockable.busyTries = 99;
    EXPECT_EQ(kBusy, lockable.TryLockWithTimeout(120));
    EXPECT_THAT(sleeps, ElementsAre(50000U, 50000U, 20000U));
    EXPECT_EQ(3, lockable.tries);
}

TEST_F(PollingLockable, NoTryFollowsTheLastSleep)
{
    lockable.busyTries = 2;
    EXPECT_EQ(kBusy, lockable.TryLockWithTimeout(100));
    EXPECT_EQ(2, lockable.tries);
}

TEST_F(PollingLockable, StopsWhenTheLockIsFree)
{
    lockable.busyTries = 2;
    EXPECT_EQ(CoreErrorCodes::kSuccess, lockable.TryLockWithTimeout(1000));
    EXPECT_THAT(sleeps, ElementsAre(50000U, 50000U));
}

TEST_F(PollingLockable, StopsAtAnotherError)
{
    lockable.busyTries = 1;
    lockable.result = CoreErrorCodes::kError;
    EXPECT_EQ(CoreErrorCodes::kError, lockable.TryLockWithTimeout(1000));
    EXPECT_THAT(sleeps, ElementsAre(50000U));
}

TEST_F(PollingLockable, ShortTimeoutSleepsOnce)
{
    lockable.busyTries = 9;
    EXPECT_EQ(kBusy, lockable.TryLockWithTimeout(7));
    EXPECT_THAT(sleeps, ElementsAre(7000U));
}

}  // namespace
