#include "TimerFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AddTimersTest : public TimerFixture {
protected:
    AIErr Add()
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return AddTimers(&message);
    }
};

TEST_F(AddTimersTest, StartupAddsOneTimer)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    ASSERT_EQ(1U, host.timers.size());
    EXPECT_EQ("Corvanta AIPlugin Timer", host.timers[0].name);
    EXPECT_EQ(1, host.timers[0].period);
    EXPECT_EQ(host.Head().self, host.timers[0].self);
    EXPECT_TRUE(host.timers[0].active);
    ASSERT_NE(nullptr, gGlobals);
    EXPECT_EQ(host.timers[0].handle, gGlobals->timerHandle);
}

TEST_F(AddTimersTest, AcquiresTheSuiteOnlyForTheCall)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAddTimer, kReleaseTimers));
    EXPECT_EQ(0, host.SuiteReferences("AI Timer Suite", 1005));
}

TEST_F(AddTimersTest, IsTheLastStepOfStartup)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    const std::vector<std::string> calls = CallsBesidesComparisons();
    ASSERT_GE(calls.size(), 4U);
    // Before that, startup releases the blocks suite.
    EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end()),
                ElementsAre("SPBasicSuite.ReleaseSuite(\"SP Blocks Suite\", 2)", kAcquireTimers,
                            kAddTimer, kReleaseTimers));
}

TEST_F(AddTimersTest, FollowsAllCallsOfPluginCoreDuringStartup)
{
    std::vector<std::string> known;
    host.OnCall("AITimerSuite.AddTimer", [&] { known = core->calls; });
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(known, ::testing::Not(IsEmpty()));
    EXPECT_EQ(known, core->calls);
}

TEST_F(AddTimersTest, HandleIsNullUntilThen)
{
    bool zero = false;
    host.OnCall("AITimerSuite.AddTimer",
                [&] { zero = gGlobals != nullptr && gGlobals->timerHandle == nullptr; });
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(zero);
}

TEST_F(AddTimersTest, FailedStartupAddsNoTimer)
{
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(4711, SendInterface("Startup"));
    EXPECT_THAT(TimerCalls(), IsEmpty());
    core->onCall.clear();
}

TEST_F(AddTimersTest, StartupAddsNoTimerIfPluginCoreRefusesToStart)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(TimerCalls(), IsEmpty());
}

TEST_F(AddTimersTest, StartupAddsTheTimerEvenIfTheMenusFail)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x02000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_EQ(1U, host.timers.size());
}

TEST_F(AddTimersTest, StartupIgnoresItsFailure)
{
    host.FailCall("AITimerSuite.AddTimer", 1, 4711);
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_EQ(12U, host.notifiers.size());
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
}

TEST_F(AddTimersTest, ReturnsAFailureAndReleasesTheSuite)
{
    Start();
    host.FailCall("AITimerSuite.AddTimer", 1, 4711);
    EXPECT_EQ(4711, Add());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAddTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddTimersTest, ReturnsTheCodeOfARefusedSuite)
{
    Start();
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(4711, Add());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddTimersTest, StartupSucceedsWithoutTimers)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_EQ(nullptr, gGlobals->timerHandle);
}

}  // namespace
