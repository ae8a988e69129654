#include <algorithm>
#include <stdexcept>

#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Startup : public MessageFixture {
protected:
    // PluginCore's calls without those for the menus and their callback.
    std::vector<std::string> CallsBesidesMenus()
    {
        std::vector<std::string> calls;
        for (const std::string& call : core->calls) {
            if (call.find("Menu") == std::string::npos) calls.push_back(call);
        }
        return calls;
    }
    // The index of the host's first call that begins like this.
    std::ptrdiff_t IndexOf(const std::string& beginning)
    {
        const auto found =
            std::find_if(host.Calls().begin(), host.Calls().end(), [&](const std::string& call) {
                return call.compare(0, beginning.size(), beginning) == 0;
            });
        EXPECT_NE(host.Calls().end(), found) << beginning;
        return found - host.Calls().begin();
    }
};

TEST_F(Startup, CallsPluginCoreInOrder)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(CallsBesidesMenus(),
                ElementsAre("GetAPIVersion(0, 7)",
                            "InitializePluginCoreInterface("
                            "\"com.corvanta.AutoActivationPlugin.AI24\", \"24\")",
                            "PluginIsEnabled(true, false)",
                            // The search for the override file asks IsLoaded for the path, which
                            // checks the version again.
                            "GetAPIVersion(0, 7)", "GetSettings(zeroed 8192, 8192)"));
}

TEST_F(Startup, RegistersInOrder)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    const auto block = IndexOf("SPBlocksSuite.AllocateBlock(160, \"globals\")");
    const auto notifier = IndexOf("AINotifierSuite.AddNotifier(\"Change!\"");
    const auto format = IndexOf("AIFileFormatSuite.AddFileFormatEx");
    const auto timer = IndexOf("AITimerSuite.AddTimer(\"Corvanta AIPlugin Timer\", 1)");
    EXPECT_LT(block, notifier);
    EXPECT_LT(notifier, format);
    EXPECT_LT(format, timer);
}

TEST_F(Startup, HostReceivesTheGlobals)
{
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_EQ(host.globals, gGlobals);
}

TEST_F(Startup, AcquiresTheBlocksSuiteSeparatelyAndReleasesIt)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(2U, host.CountCalls("SPBasicSuite.AcquireSuite(\"SP Blocks Suite\", 2)"));
    EXPECT_EQ(1, host.SuiteReferences("SP Blocks Suite", 2));
}

TEST_F(Startup, RefusedInitializationLeavesThePluginInert)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_THAT(host.menuItems, IsEmpty());
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetAPIVersion", "InitializePluginCoreInterface"));
    EXPECT_THAT(host.alerts, IsEmpty());
}

TEST_F(Startup, ReturnsTheHostsCodeIfTheBlocksSuiteIsRefused)
{
    // The first message acquires all suites of the table, this one included.
    ASSERT_EQ(0, SendInterface("Other"));
    host.RefuseSuite("SP Blocks Suite", 2, 4711);
    EXPECT_EQ(4711, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("EXCEPTION: AIErr from AcquireSuite(kSPBlocksSuite)"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
}

TEST_F(Startup, ReturnsTheHostsCodeIfNoBlockCanBeAllocated)
{
    host.FailCall("SPBlocksSuite.AllocateBlock", 1, 0x214D454D);
    EXPECT_EQ(0x214D454D, SendInterface("Startup"));
    EXPECT_FALSE(HasTrace("EXCEPTION: AIErr from AcquireSuite(kSPBlocksSuite)"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(1, host.SuiteReferences("SP Blocks Suite", 2));
    EXPECT_THAT(host.notifiers, IsEmpty());
}

TEST_F(Startup, IntThrownByALaterStepLeavesThePluginHalfStarted)
{
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(4711, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_EQ(12U, host.notifiers.size());
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_EQ(1, host.SuiteReferences("SP Blocks Suite", 2));
    core->onCall.clear();
}

TEST_F(Startup, OtherExceptionsReachTheBarrier)
{
    core->onCall["PluginIsEnabled"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
    core->onCall.clear();
}

TEST_F(Startup, ExceptionOfTheReleaseDoesNotReplaceTheOneThatEndsTheStartup)
{
    core->onCall["PluginIsEnabled"] = [this] {
        host.OnCall("SPBasicSuite.ReleaseSuite", [] { throw 4711; });
        throw std::runtime_error("x");
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(0U, host.LiveBlocks());
    core->onCall.clear();
}

TEST_F(Startup, SetsUpTheSuppressionWithPluginCoresFlag)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(1)"));
}

TEST_F(Startup, SetsUpTheSuppressionOfADisabledPluginToo)
{
    core->enabled = false;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(0)"));
    EXPECT_EQ(12U, host.notifiers.size());
}

TEST_F(Startup, ExceptionOfPluginCoreReachesTheBarrier)
{
    core->onCall["InitializePluginCoreInterface"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(nullptr, host.globals);
    core->onCall.clear();
}

TEST_F(Startup, ContinuesWithoutTheFileFormat)
{
    host.RefuseSuite("AI File Format Suite", 1015, 4711);
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(1U, host.timers.size());
    EXPECT_EQ(12U, host.notifiers.size());
    EXPECT_THAT(CallsBesidesMenus(), ::testing::Contains("PluginIsEnabled(true, false)"));
}

}  // namespace
