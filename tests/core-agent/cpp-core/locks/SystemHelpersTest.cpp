#include <gmock/gmock.h>

#include <thread>

#include "GScopedManagedMemory.h"
#include "GSystem.h"
#include "GThread.h"
#include "GUtils.h"
#include "ScriptedSystemCalls.h"

using testing::ElementsAre;

namespace {

class SystemHelpers : public testing::Test {
protected:
    SystemHelpers() { script = ScriptedSystemCalls(); }
    ~SystemHelpers() override { script = ScriptedSystemCalls(); }

    timespec After(unsigned int milliseconds, time_t seconds, long microseconds)
    {
        script.isClockSet = true;
        script.now = {seconds, microseconds * 1000};
        timespec result = {};
        GUtils::FutureMillisecondsToAbsTime(milliseconds, result);
        return result;
    }
    static void ExpectTime(const timespec& time, time_t seconds, long nanoseconds)
    {
        EXPECT_EQ(seconds, time.tv_sec);
        EXPECT_EQ(nanoseconds, time.tv_nsec);
    }

    ScriptedSystemCalls& script = ScriptedSystemCalls::Current();
};

TEST_F(SystemHelpers, FutureTimeCarriesIntoTheSeconds)
{
    ExpectTime(After(1500, 1000, 600000), 1002, 100000000);
}

TEST_F(SystemHelpers, FutureTimeWithinTheSecondHasNoCarry)
{
    ExpectTime(After(0, 1000, 600000), 1000, 600000000);
    ExpectTime(After(399, 1000, 600000), 1000, 999000000);
    ExpectTime(After(2000, 1000, 1), 1002, 1000);
}

TEST_F(SystemHelpers, FutureTimeOfAWholeSecondCarries)
{
    ExpectTime(After(400, 1000, 600000), 1001, 0);
}

TEST_F(SystemHelpers, FutureTimeOfTheLongestWaitDoesNotOverflow)
{
    ExpectTime(After(0xFFFFFFFE, 1000, 0), 1000 + 4294967, 294000000);
}

TEST_F(SystemHelpers, SleepIsInMicroseconds)
{
    GSystem::OSSleep(0);
    GSystem::OSSleep(50);
    GSystem::OSSleep(4294967);
    EXPECT_THAT(script.sleeps, ElementsAre(0U, 50000U, 4294967000U));
}

TEST_F(SystemHelpers, LongSleepWraps)
{
    GSystem::OSSleep(4294968);
    EXPECT_THAT(script.sleeps, ElementsAre(704U));
}

TEST_F(SystemHelpers, SystemHasPosixPathsAndCallsThemMacOSX)
{
    EXPECT_EQ(0, GSystem::OSGetSystem());
    EXPECT_TRUE(GSystem::IsMacOSX());
    EXPECT_FALSE(GSystem::IsWindows());
}

TEST_F(SystemHelpers, NullIdentityEqualsOnlyNull)
{
    EXPECT_TRUE(GThread::AreThreadsEqual(nullptr, nullptr));
    EXPECT_FALSE(GThread::AreThreadsEqual(nullptr, GThread::GetCurrentThread()));
    EXPECT_FALSE(GThread::AreThreadsEqual(GThread::GetCurrentThread(), nullptr));
}

TEST_F(SystemHelpers, ThreadEqualsOnlyItself)
{
    void* const own = GThread::GetCurrentThread();
    EXPECT_NE(nullptr, own);
    EXPECT_TRUE(GThread::AreThreadsEqual(own, GThread::GetCurrentThread()));
    bool isEqual = true;
    std::thread([&] {
        isEqual = GThread::AreThreadsEqual(own, GThread::GetCurrentThread());
    }).join();
    EXPECT_FALSE(isEqual);
}

TEST_F(SystemHelpers, IdentityHoldsThePthread)
{
    EXPECT_EQ(GThread::OSGetCurrentThread(), GThread::GetCurrentThread());
    EXPECT_TRUE(pthread_equal(GThread::OSGetPthreadFromOSData(GThread::GetCurrentThread()),
                              pthread_self()));
}

TEST_F(SystemHelpers, MemoryScopesNest)
{
    const GScopedManagedMemory outer;
    const GScopedManagedMemory inner;
    static_assert(!std::is_copy_constructible_v<GScopedManagedMemory>);
    static_assert(sizeof(GScopedManagedMemory) == sizeof(void*));
}

}  // namespace
