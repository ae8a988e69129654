#include <memory>
#include <utility>

#include "TimerFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr char kAskTimer[] = "AITimerSuite.GetTimerActive()";
constexpr char kStopTimer[] = "AITimerSuite.SetTimerActive(false)";

class RemoveTimersTest : public TimerFixture {
protected:
    RemoveTimersTest() { Start(); }
    std::size_t IndexOfTrace(const std::string& beginning)
    {
        const std::vector<std::string> texts = TraceTexts();
        const auto found = std::find_if(texts.begin(), texts.end(), [&](const auto& text) {
            return text.compare(0, beginning.size(), beginning) == 0;
        });
        EXPECT_NE(texts.end(), found) << beginning;
        return std::size_t(found - texts.begin());
    }
};

TEST_F(RemoveTimersTest, StopsTheTimerWithoutRemovingIt)
{
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    ASSERT_EQ(1U, host.timers.size());
    EXPECT_FALSE(host.timers[0].active);
    EXPECT_EQ(0, host.SuiteReferences("AI Timer Suite", 1005));
}

TEST_F(RemoveTimersTest, KeepsTheHandle)
{
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_EQ(host.timers.at(0).handle, gGlobals->timerHandle);
}

TEST_F(RemoveTimersTest, DoesNotStopAStoppedTimer)
{
    host.timers.at(0).active = false;
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kReleaseTimers));
}

TEST_F(RemoveTimersTest, SecondCallDoesNotStopTheTimerAgain)
{
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_EQ(2U, host.CountCalls(kAskTimer));
    EXPECT_EQ(1U, host.CountCalls(kStopTimer));
}

TEST_F(RemoveTimersTest, OnlyAcquiresAndReleasesTheSuiteWithoutATimer)
{
    gGlobals->timerHandle = nullptr;
    EXPECT_EQ(0, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kReleaseTimers));
}

TEST_F(RemoveTimersTest, OnlyAcquiresAndReleasesTheSuiteWithoutGlobals)
{
    SGlobals* const globals = std::exchange(gGlobals, nullptr);
    EXPECT_EQ(0, RemoveTimers());
    gGlobals = globals;
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kReleaseTimers));
}

TEST_F(RemoveTimersTest, ReturnsAFailureToGetTheState)
{
    host.FailCall("AITimerSuite.GetTimerActive", 1, 4711);
    EXPECT_EQ(4711, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_TRUE(host.timers.at(0).active);
}

TEST_F(RemoveTimersTest, ReturnsAFailureToStop)
{
    host.FailCall("AITimerSuite.SetTimerActive", 1, 4711);
    EXPECT_EQ(4711, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(RemoveTimersTest, ReturnsTheCodeOfARefusedSuite)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(4711, RemoveTimers());
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers));
}

TEST_F(RemoveTimersTest, ShutdownStopsTheTimer)
{
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    EXPECT_FALSE(host.timers.at(0).active);
}

TEST_F(RemoveTimersTest, ShutdownTracesItAfterTheSuppression)
{
    EXPECT_EQ(0, SendInterface("Shutdown"));
    const std::string trace = "Calling RemoveTimers from ShutdownPlugin.";
    EXPECT_EQ(1U, CountTraces(trace));
    EXPECT_LT(IndexOfTrace("Entering SetupIllustratorDialogSuppression"), IndexOfTrace(trace));
    for (const TraceLine& line : Traces()) {
        if (line.text != trace) continue;
        EXPECT_EQ(0, line.indentChange);
    }
}

TEST_F(RemoveTimersTest, ShutdownTracesItBeforeTheHostCallsAndTheReleaseOfSuites)
{
    bool wasTraced = false;
    std::size_t released = 1;
    host.OnCall("AITimerSuite.GetTimerActive", [&] {
        wasTraced = HasTrace("Calling RemoveTimers from ShutdownPlugin.");
        released = host.CountCalls("SPBasicSuite.ReleaseSuite");
    });
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_TRUE(wasTraced);
    EXPECT_EQ(0U, released);
}

TEST_F(RemoveTimersTest, ShutdownIgnoresItsFailure)
{
    host.FailCall("AITimerSuite.SetTimerActive", 1, 4711);
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(0U, host.LiveBlocks());
    EXPECT_EQ(0, host.SuiteReferences());
}

TEST_F(RemoveTimersTest, ShutdownSucceedsWithoutTimers)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0U, host.LiveBlocks());
}

TEST_F(RemoveTimersTest, SecondShutdownDoesNotStopTheTimer)
{
    EXPECT_EQ(0, SendNotifier("AI Application Shutdown Notifier"));
    Forget();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_THAT(TimerCalls(), IsEmpty());
    EXPECT_FALSE(HasTrace("Calling RemoveTimers from ShutdownPlugin."));
}

TEST_F(RemoveTimersTest, ShutdownSkipsItIfPluginCoreThrows)
{
    core->onCall["TerminatePluginCoreInterface"] = [] { throw 4711; };
    const std::unique_ptr<std::string> orphan(gGlobals->globalsString);
    EXPECT_EQ(4711, SendInterface("Shutdown"));
    EXPECT_THAT(TimerCalls(), IsEmpty());
    EXPECT_FALSE(HasTrace("Calling RemoveTimers from ShutdownPlugin."));
    core->onCall.clear();
}

}  // namespace
