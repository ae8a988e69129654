#include "GLockable.h"

#include <gmock/gmock.h>

#include <vector>

#include "ScriptedSystemCalls.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr unsigned int kBusy = 0x0100100C;

// Busy for so many tries, then with the result.
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

TEST_F(PollingLockable, FreeOneIsHadWithoutSleep)
{
    EXPECT_EQ(lockable.TryLockWithTimeout(1000), 0U);
    EXPECT_EQ(lockable.tries, 1);
    EXPECT_THAT(sleeps, IsEmpty());
}

TEST_F(PollingLockable, NoTimeIsOneTry)
{
    lockable.busyTries = 9;
    EXPECT_EQ(lockable.TryLockWithTimeout(0), kBusy);
    EXPECT_EQ(lockable.tries, 1);
    EXPECT_THAT(sleeps, IsEmpty());
}

TEST_F(PollingLockable, SleepsFiftyMillisecondsAndTheRemainder)
{
    lockable.busyTries = 99;
    EXPECT_EQ(lockable.TryLockWithTimeout(120), kBusy);
    EXPECT_THAT(sleeps, ElementsAre(50000U, 50000U, 20000U));
    EXPECT_EQ(lockable.tries, 3);
}

TEST_F(PollingLockable, NoTryFollowsTheLastSleep)
{
    lockable.busyTries = 2;
    EXPECT_EQ(lockable.TryLockWithTimeout(100), kBusy);
    EXPECT_EQ(lockable.tries, 2);
}

TEST_F(PollingLockable, StopsWhenItIsFree)
{
    lockable.busyTries = 2;
    EXPECT_EQ(lockable.TryLockWithTimeout(1000), 0U);
    EXPECT_THAT(sleeps, ElementsAre(50000U, 50000U));
}

TEST_F(PollingLockable, StopsAtAnotherError)
{
    lockable.busyTries = 1;
    lockable.result = CoreErrorCodes::kError;
    EXPECT_EQ(lockable.TryLockWithTimeout(1000), CoreErrorCodes::kError);
    EXPECT_THAT(sleeps, ElementsAre(50000U));
}

TEST_F(PollingLockable, ShortTimeIsOneShortSleep)
{
    lockable.busyTries = 9;
    EXPECT_EQ(lockable.TryLockWithTimeout(7), kBusy);
    EXPECT_THAT(sleeps, ElementsAre(7000U));
}

}  // namespace
