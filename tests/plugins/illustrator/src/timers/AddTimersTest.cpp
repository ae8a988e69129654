#include "TimerTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AddTimersTest : public TimerTest {
protected:
    AIErr Add()
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        return AddTimers(&message);
    }
};

TEST_F(AddTimersTest, StartupAddsOneTimer)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    ASSERT_EQ(host.timers.size(), 1U);
    EXPECT_EQ(host.timers[0].name, "Corvanta AIPlugin Timer");
    EXPECT_EQ(host.timers[0].period, 1);
    EXPECT_EQ(host.timers[0].self, host.Head().self);
    EXPECT_TRUE(host.timers[0].active);
    ASSERT_NE(gGlobals, nullptr);
    EXPECT_EQ(gGlobals->timerHandle, host.timers[0].handle);
}

TEST_F(AddTimersTest, SuiteIsAcquiredForTheCallAlone)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAddTimer, kReleaseTimers));
    EXPECT_EQ(host.SuiteReferences("AI Timer Suite", 1005), 0);
}

TEST_F(AddTimersTest, IsTheLastStepOfStartup)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    const std::vector<std::string> calls = CallsBesidesComparisons();
    ASSERT_GE(calls.size(), 4U);
    // The blocks suite is given back before it.
    EXPECT_THAT(std::vector<std::string>(calls.end() - 4, calls.end()),
                ElementsAre("SPBasicSuite.ReleaseSuite(\"SP Blocks Suite\", 2)", kAcquireTimers,
                            kAddTimer, kReleaseTimers));
}

TEST_F(AddTimersTest, ComesAfterAllThatStartupAsksOfPluginCore)
{
    std::vector<std::string> known;
    host.OnCall("AITimerSuite.AddTimer", [&] { known = core->calls; });
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(known, ::testing::Not(IsEmpty()));
    EXPECT_EQ(known, core->calls);
}

TEST_F(AddTimersTest, HandleIsZeroUntilThen)
{
    bool zero = false;
    host.OnCall("AITimerSuite.AddTimer",
                [&] { zero = gGlobals != nullptr && gGlobals->timerHandle == nullptr; });
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(zero);
}

TEST_F(AddTimersTest, FailedStartupAddsNone)
{
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(SendInterface("Startup"), 4711);
    EXPECT_THAT(TimerCalls(), IsEmpty());
    core->onCall.clear();
}

TEST_F(AddTimersTest, RefusedPluginCoreAddsNone)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(TimerCalls(), IsEmpty());
}

TEST_F(AddTimersTest, FailedMenusDoNotKeepItBack)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x02000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_EQ(host.timers.size(), 1U);
}

TEST_F(AddTimersTest, StartupDropsItsFailure)
{
    host.FailCall("AITimerSuite.AddTimer", 1, 4711);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_NE(host.globals, nullptr);
    EXPECT_EQ(host.notifiers.size(), 12U);
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
}

TEST_F(AddTimersTest, FailedAddIsTheResultAndTheSuiteIsGivenBack)
{
    Start();
    host.FailCall("AITimerSuite.AddTimer", 1, 4711);
    EXPECT_EQ(Add(), 4711);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAddTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddTimersTest, SuiteThatCannotBeHadIsTheResult)
{
    Start();
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(Add(), 4711);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(AddTimersTest, StartupServesAHostWithoutTimers)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_NE(host.globals, nullptr);
    EXPECT_EQ(gGlobals->timerHandle, nullptr);
}

}  // namespace
