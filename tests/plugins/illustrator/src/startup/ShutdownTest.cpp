#include <memory>

#include "HostSuites.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Shutdown : public MessageTest {};

TEST_F(Shutdown, StopsPluginCoreFirstAndAsksForTheSettingsAfterwards)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("TerminatePluginCoreInterface", "GetAPIVersion", "GetSettings"));
}

TEST_F(Shutdown, ResultIsPluginCoresStatus)
{
    Start();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendInterface("Shutdown"), 0x02000000);
    EXPECT_EQ(host.globals, nullptr);
}

TEST_F(Shutdown, FreesTheRecordAndGivesAllSuitesBack)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.LiveBlocks(), 0U);
    EXPECT_EQ(host.CountCalls("SPBlocksSuite.FreeBlock(globals)"), 1U);
    EXPECT_EQ(host.SuiteReferences(), 0);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(gGlobals, nullptr);
}

TEST_F(Shutdown, SecondMessageDoesNothing)
{
    Start();
    EXPECT_EQ(SendNotifier("AI Application Shutdown Notifier"), 0);
    Forget();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_EQ(host.CountCalls("SPBlocksSuite."), 0U);
    EXPECT_TRUE(HasTrace("Entering ShutdownPlugin"));
}

TEST_F(Shutdown, BeforeStartupDoesNothing)
{
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Shutdown, EntryIsTracedWithoutIndentAndWithoutExit)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    std::size_t entries = 0;
    for (const TraceLine& line : Traces()) {
        if (line.text != "Entering ShutdownPlugin") continue;
        ++entries;
        EXPECT_EQ(line.indentChange, 0);
    }
    EXPECT_EQ(entries, 1U);
    EXPECT_FALSE(HasTraceBeginningWith("Exiting ShutdownPlugin"));
    EXPECT_FALSE(HasTraceBeginningWith("ShutdownPlugin returning"));
}

TEST_F(Shutdown, SuppressionIsSetUpAnewWithoutEnabling)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(0)"));
}

TEST_F(Shutdown, TimerIsStoppedWithAnAnnouncement)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(CountTraces("Calling RemoveTimers from ShutdownPlugin."), 1U);
    ASSERT_EQ(host.timers.size(), 1U);
    EXPECT_FALSE(host.timers[0].active);
}

TEST_F(Shutdown, NotifierMessageLosesItsGlobalsWord)
{
    Start();
    AINotifierMessage message = host.NotifierMessage("AI Application Shutdown Notifier");
    EXPECT_EQ(host.Send(Main, "AI Notifier", "AI Notify", message), 0);
    EXPECT_EQ(message.d.globals, nullptr);
}

TEST_F(Shutdown, IntOutOfPluginCoreClearsThePointersAndLeavesTheRest)
{
    Start();
    std::string* const text = gGlobals->globalsString;
    core->onCall["TerminatePluginCoreInterface"] = [] { throw 4711; };
    EXPECT_EQ(SendInterface("Shutdown"), 4711);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(gGlobals, nullptr);
    EXPECT_EQ(host.LiveBlocks(), 1U);
    EXPECT_EQ(sAcquireCount, 1U);
    const std::unique_ptr<std::string> orphan(text);
}

TEST_F(Shutdown, IntOutOfTheSuppressionClearsThePointersAndLeavesTheBlock)
{
    Start();
    core->onCall["GetSettings"] = [] { throw 4711; };
    EXPECT_EQ(SendInterface("Shutdown"), 4711);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(host.LiveBlocks(), 1U);
}

TEST_F(Shutdown, BlocksSuiteThatCannotBeHadLeavesTheBlock)
{
    Start();
    host.RefuseSuite("SP Blocks Suite", 2, 4711);
    EXPECT_EQ(SendInterface("Shutdown"), 4711);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(host.LiveBlocks(), 1U);
}

TEST_F(Shutdown, FailedReleaseOfTheSuitesIsNotLookedAt)
{
    Start();
    host.FailCall("SPBasicSuite.ReleaseSuite", 5, 4711);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(host.LiveBlocks(), 0U);
}

TEST_F(Shutdown, NextMessageAcquiresTheSuitesForGood)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.SuiteReferences(), 99);
    EXPECT_EQ(SendInterface("Other"), 0);
    EXPECT_EQ(host.SuiteReferences(), 99);
}

// Without a full set the count stays at 0 and goes below it here, so that nothing is acquired
// again.
TEST_F(Shutdown, AfterAFailedAcquisitionNothingIsAcquiredAgain)
{
    host.RefuseSuite("AI Document Suite", 1017, 4711);
    ASSERT_EQ(SendInterface("Startup"), 0);
    (void)SendInterface("Shutdown");
    EXPECT_EQ(sAcquireCount, 0xFFFFFFFFU);
    host.AllowSuite("AI Document Suite", 1017);
    host.ClearCalls();
    EXPECT_EQ(SendInterface("Other"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite"), 0U);
}

TEST_F(Shutdown, StartsAgainAfterwards)
{
    Start();
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_NE(host.globals, nullptr);
    ASSERT_EQ(host.timers.size(), 2U);
    EXPECT_TRUE(host.timers[1].active);
}

TEST_F(Shutdown, NullMessageIsABadParameter)
{
    Start();
    EXPECT_EQ(ShutdownPlugin(nullptr), 0x5041524D);
    EXPECT_NE(gGlobals, nullptr);
}

TEST_F(Shutdown, RecordThatTheHostDoesNotTakeBackIsTheResult)
{
    Start();
    host.FailCall("SPBlocksSuite.FreeBlock", 1, 4711);
    EXPECT_EQ(SendInterface("Shutdown"), 4711);
    EXPECT_EQ(gGlobals, nullptr);
    EXPECT_EQ(host.globals, nullptr);
}

}  // namespace
