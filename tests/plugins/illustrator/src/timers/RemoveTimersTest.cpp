#include <memory>
#include <utility>

#include "TimerTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr char kAskTimer[] = "AITimerSuite.GetTimerActive()";
constexpr char kStopTimer[] = "AITimerSuite.SetTimerActive(false)";

class RemoveTimersTest : public TimerTest {
protected:
    RemoveTimersTest() { Start(); }
    std::size_t PlaceOfTrace(const std::string& beginning)
    {
        const std::vector<std::string> texts = TraceTexts();
        const auto found = std::find_if(texts.begin(), texts.end(), [&](const auto& text) {
            return text.compare(0, beginning.size(), beginning) == 0;
        });
        EXPECT_NE(found, texts.end()) << beginning;
        return std::size_t(found - texts.begin());
    }
};

TEST_F(RemoveTimersTest, StopsTheTimerAndLeavesItToTheHost)
{
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    ASSERT_EQ(host.timers.size(), 1U);
    EXPECT_FALSE(host.timers[0].active);
    EXPECT_EQ(host.SuiteReferences("AI Timer Suite", 1005), 0);
}

TEST_F(RemoveTimersTest, HandleIsKept)
{
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_EQ(gGlobals->timerHandle, host.timers.at(0).handle);
}

TEST_F(RemoveTimersTest, TimerThatIsStoppedIsOnlyAsked)
{
    host.timers.at(0).active = false;
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kReleaseTimers));
}

TEST_F(RemoveTimersTest, TwiceAsksTwiceAndStopsOnce)
{
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_EQ(host.CountCalls(kAskTimer), 2U);
    EXPECT_EQ(host.CountCalls(kStopTimer), 1U);
}

TEST_F(RemoveTimersTest, WithoutATimerTheSuiteIsAcquiredAndReleased)
{
    gGlobals->timerHandle = nullptr;
    EXPECT_EQ(RemoveTimers(), 0);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kReleaseTimers));
}

TEST_F(RemoveTimersTest, BeforeThereAreGlobalsTheSuiteIsAcquiredAndReleased)
{
    SGlobals* const globals = std::exchange(gGlobals, nullptr);
    EXPECT_EQ(RemoveTimers(), 0);
    gGlobals = globals;
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kReleaseTimers));
}

TEST_F(RemoveTimersTest, FailedQuestionIsTheResult)
{
    host.FailCall("AITimerSuite.GetTimerActive", 1, 4711);
    EXPECT_EQ(RemoveTimers(), 4711);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_TRUE(host.timers.at(0).active);
}

TEST_F(RemoveTimersTest, FailedStopIsTheResult)
{
    host.FailCall("AITimerSuite.SetTimerActive", 1, 4711);
    EXPECT_EQ(RemoveTimers(), 4711);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(RemoveTimersTest, SuiteThatCannotBeHadIsTheResult)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(RemoveTimers(), 4711);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers));
}

TEST_F(RemoveTimersTest, ShutdownStopsTheTimer)
{
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_THAT(TimerCalls(), ElementsAre(kAcquireTimers, kAskTimer, kStopTimer, kReleaseTimers));
    EXPECT_FALSE(host.timers.at(0).active);
}

TEST_F(RemoveTimersTest, ShutdownAnnouncesItBehindTheSuppression)
{
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    const std::string announced = "Calling RemoveTimers from ShutdownPlugin.";
    EXPECT_EQ(CountTraces(announced), 1U);
    EXPECT_LT(PlaceOfTrace("Entering SetupIllustratorDialogSuppression"), PlaceOfTrace(announced));
    for (const TraceLine& line : Traces()) {
        if (line.text != announced) continue;
        EXPECT_EQ(line.indentChange, 0);
    }
}

TEST_F(RemoveTimersTest, ShutdownAnnouncesItBeforeTheHostIsAskedAndBeforeTheSuitesGo)
{
    bool announced = false;
    std::size_t released = 1;
    host.OnCall("AITimerSuite.GetTimerActive", [&] {
        announced = HasTrace("Calling RemoveTimers from ShutdownPlugin.");
        released = host.CountCalls("SPBasicSuite.ReleaseSuite");
    });
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_TRUE(announced);
    EXPECT_EQ(released, 0U);
}

TEST_F(RemoveTimersTest, ShutdownDropsItsFailure)
{
    host.FailCall("AITimerSuite.SetTimerActive", 1, 4711);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(host.LiveBlocks(), 0U);
    EXPECT_EQ(host.SuiteReferences(), 0);
}

TEST_F(RemoveTimersTest, ShutdownServesAHostWithoutTimers)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.LiveBlocks(), 0U);
}

TEST_F(RemoveTimersTest, SecondShutdownLeavesTheTimerAlone)
{
    EXPECT_EQ(SendNotifier("AI Application Shutdown Notifier"), 0);
    Forget();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_THAT(TimerCalls(), IsEmpty());
    EXPECT_FALSE(HasTrace("Calling RemoveTimers from ShutdownPlugin."));
}

TEST_F(RemoveTimersTest, FailedEndOfPluginCoreSkipsIt)
{
    core->onCall["TerminatePluginCoreInterface"] = [] { throw 4711; };
    const std::unique_ptr<std::string> orphan(gGlobals->globalsString);
    EXPECT_EQ(SendInterface("Shutdown"), 4711);
    EXPECT_THAT(TimerCalls(), IsEmpty());
    EXPECT_FALSE(HasTrace("Calling RemoveTimers from ShutdownPlugin."));
    core->onCall.clear();
}

}  // namespace
