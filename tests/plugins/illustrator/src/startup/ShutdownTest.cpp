#include <memory>

#include "HostSuites.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Shutdown : public MessageFixture {};

TEST_F(Shutdown, StopsPluginCoreFirstAndThenReadsTheSettings)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_THAT(core->CalledNames(),
                ElementsAre("TerminatePluginCoreInterface", "GetAPIVersion", "GetSettings"));
}

TEST_F(Shutdown, ReturnsPluginCoresStatus)
{
    Start();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0x02000000, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
}

TEST_F(Shutdown, FreesTheRecordAndReleasesAllSuites)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0U, host.LiveBlocks());
    EXPECT_EQ(1U, host.CountCalls("SPBlocksSuite.FreeBlock(globals)"));
    EXPECT_EQ(0, host.SuiteReferences());
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(nullptr, gGlobals);
}

TEST_F(Shutdown, SecondMessageDoesNothing)
{
    Start();
    EXPECT_EQ(0, SendNotifier("AI Application Shutdown Notifier"));
    Forget();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_EQ(0U, host.CountCalls("SPBlocksSuite."));
    EXPECT_TRUE(HasTrace("Entering ShutdownPlugin"));
}

TEST_F(Shutdown, DoesNothingBeforeStartup)
{
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Shutdown, TracesTheEntryWithoutIndentAndNoExit)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    std::size_t entries = 0;
    for (const TraceLine& line : Traces()) {
        if (line.text != "Entering ShutdownPlugin") continue;
        ++entries;
        EXPECT_EQ(0, line.indentChange);
    }
    EXPECT_EQ(1U, entries);
    EXPECT_FALSE(HasTraceBeginningWith("Exiting ShutdownPlugin"));
    EXPECT_FALSE(HasTraceBeginningWith("ShutdownPlugin returning"));
}

TEST_F(Shutdown, SetsUpTheSuppressionAsDisabled)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(0)"));
}

TEST_F(Shutdown, TracesAndStopsTheTimer)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(1U, CountTraces("Calling RemoveTimers from ShutdownPlugin."));
    ASSERT_EQ(1U, host.timers.size());
    EXPECT_FALSE(host.timers[0].active);
}

TEST_F(Shutdown, ClearsTheGlobalsOfANotifierMessage)
{
    Start();
    AINotifierMessage message = host.NotifierMessage("AI Application Shutdown Notifier");
    EXPECT_EQ(0, host.Send(Main, "AI Notifier", "AI Notify", message));
    EXPECT_EQ(nullptr, message.d.globals);
}

TEST_F(Shutdown, IntThrownByPluginCoreClearsThePointersOnly)
{
    Start();
    std::string* const text = gGlobals->globalsString;
    core->onCall["TerminatePluginCoreInterface"] = [] { throw 4711; };
    EXPECT_EQ(4711, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(nullptr, gGlobals);
    EXPECT_EQ(1U, host.LiveBlocks());
    EXPECT_EQ(1U, sAcquireCount);
    const std::unique_ptr<std::string> orphan(text);
}

TEST_F(Shutdown, IntThrownBySuppressionLeavesTheBlockAllocated)
{
    Start();
    core->onCall["GetSettings"] = [] { throw 4711; };
    EXPECT_EQ(4711, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(1U, host.LiveBlocks());
}

TEST_F(Shutdown, RefusedBlocksSuiteLeavesTheBlockAllocated)
{
    Start();
    host.RefuseSuite("SP Blocks Suite", 2, 4711);
    EXPECT_EQ(4711, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(1U, host.LiveBlocks());
}

TEST_F(Shutdown, IgnoresAFailureToReleaseTheSuites)
{
    Start();
    host.FailCall("SPBasicSuite.ReleaseSuite", 5, 4711);
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(0U, host.LiveBlocks());
}

TEST_F(Shutdown, NextMessageAcquiresTheSuitesAndNothingReleasesThem)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(99, host.SuiteReferences());
    EXPECT_EQ(0, SendInterface("Other"));
    EXPECT_EQ(99, host.SuiteReferences());
}

// After a failed acquisition the count is 0, and the shutdown decrements it: it wraps around.
TEST_F(Shutdown, AfterAFailedAcquisitionNothingIsAcquiredAgain)
{
    host.RefuseSuite("AI Document Suite", 1017, 4711);
    ASSERT_EQ(0, SendInterface("Startup"));
    (void)SendInterface("Shutdown");
    EXPECT_EQ(0xFFFFFFFFU, sAcquireCount);
    host.AllowSuite("AI Document Suite", 1017);
    host.ClearCalls();
    EXPECT_EQ(0, SendInterface("Other"));
    EXPECT_EQ(0U, host.CountCalls("SPBasicSuite.AcquireSuite"));
}

TEST_F(Shutdown, StartsAgainAfterAShutdown)
{
    Start();
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_NE(nullptr, host.globals);
    ASSERT_EQ(2U, host.timers.size());
    EXPECT_TRUE(host.timers[1].active);
}

TEST_F(Shutdown, RejectsANullMessage)
{
    Start();
    EXPECT_EQ(kHostBadParameter, ShutdownPlugin(nullptr));
    EXPECT_NE(nullptr, gGlobals);
}

TEST_F(Shutdown, ReturnsTheHostsCodeIfTheRecordCannotBeFreed)
{
    Start();
    host.FailCall("SPBlocksSuite.FreeBlock", 1, 4711);
    EXPECT_EQ(4711, SendInterface("Shutdown"));
    EXPECT_EQ(nullptr, gGlobals);
    EXPECT_EQ(nullptr, host.globals);
}

}  // namespace
