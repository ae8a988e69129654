#include <algorithm>
#include <stdexcept>

#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Startup : public MessageTest {
protected:
    // Of PluginCore's calls those that don't belong to the menus or their callback.
    std::vector<std::string> CallsBesidesMenus()
    {
        std::vector<std::string> calls;
        for (const std::string& call : core->calls) {
            if (call.find("Menu") == std::string::npos) calls.push_back(call);
        }
        return calls;
    }
    std::ptrdiff_t PlaceOf(const std::string& beginning)
    {
        const auto found =
            std::find_if(host.Calls().begin(), host.Calls().end(), [&](const std::string& call) {
                return call.compare(0, beginning.size(), beginning) == 0;
            });
        EXPECT_NE(found, host.Calls().end()) << beginning;
        return found - host.Calls().begin();
    }
};

TEST_F(Startup, CallsPluginCoreInOrder)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(CallsBesidesMenus(),
                ElementsAre("GetAPIVersion(0, 7)",
                            "InitializePluginCoreInterface("
                            "\"com.corvanta.AutoActivationPlugin.AI24\", \"24\")",
                            "PluginIsEnabled(true, false)",
                            // the test of the override file asks for the path, and that for the
                            // version
                            "GetAPIVersion(0, 7)", "GetSettings(zeroed 8192, 8192)"));
}

TEST_F(Startup, RegistersInOrder)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    const auto block = PlaceOf("SPBlocksSuite.AllocateBlock(160, \"globals\")");
    const auto notifier = PlaceOf("AINotifierSuite.AddNotifier(\"Change!\"");
    const auto format = PlaceOf("AIFileFormatSuite.AddFileFormatEx");
    const auto timer = PlaceOf("AITimerSuite.AddTimer(\"Corvanta AIPlugin Timer\", 1)");
    EXPECT_LT(block, notifier);
    EXPECT_LT(notifier, format);
    EXPECT_LT(format, timer);
}

TEST_F(Startup, HostKeepsTheGlobals)
{
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_NE(host.globals, nullptr);
    EXPECT_EQ(gGlobals, host.globals);
}

TEST_F(Startup, BlocksSuiteIsAcquiredOnItsOwnAndGivenBack)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"SP Blocks Suite\", 2)"), 2U);
    EXPECT_EQ(host.SuiteReferences("SP Blocks Suite", 2), 1);
}

TEST_F(Startup, RefusedInitializationLeavesThePluginInert)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_THAT(host.menuItems, IsEmpty());
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_THAT(core->CalledNames(), ElementsAre("GetAPIVersion", "InitializePluginCoreInterface"));
    EXPECT_THAT(host.alerts, IsEmpty());
}

TEST_F(Startup, BlocksSuiteRefusedGivesTheHostsCode)
{
    // The walk over the table comes first and is allowed it.
    ASSERT_EQ(SendInterface("Other"), 0);
    host.RefuseSuite("SP Blocks Suite", 2, 4711);
    EXPECT_EQ(SendInterface("Startup"), 4711);
    EXPECT_TRUE(HasTrace("EXCEPTION: AIErr from AcquireSuite(kSPBlocksSuite)"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
}

TEST_F(Startup, FailedBlockGivesTheHostsCode)
{
    host.FailCall("SPBlocksSuite.AllocateBlock", 1, 0x214D454D);
    EXPECT_EQ(SendInterface("Startup"), 0x214D454D);
    EXPECT_FALSE(HasTrace("EXCEPTION: AIErr from AcquireSuite(kSPBlocksSuite)"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(host.SuiteReferences("SP Blocks Suite", 2), 1);
    EXPECT_THAT(host.notifiers, IsEmpty());
}

TEST_F(Startup, IntFromALaterStepLeavesItHalfStarted)
{
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(SendInterface("Startup"), 4711);
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_NE(host.globals, nullptr);
    EXPECT_EQ(host.notifiers.size(), 12U);
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_EQ(host.SuiteReferences("SP Blocks Suite", 2), 1);
    core->onCall.clear();
}

TEST_F(Startup, OtherExceptionsGoToTheBarrier)
{
    core->onCall["PluginIsEnabled"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
    core->onCall.clear();
}

TEST_F(Startup, SuppressionIsSetUpWithPluginCoresFlag)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(1)"));
}

TEST_F(Startup, SuppressionIsSetUpForADisabledPluginToo)
{
    core->enabled = false;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(0)"));
    EXPECT_EQ(host.notifiers.size(), 12U);
}

TEST_F(Startup, PluginCoreThatThrowsEndsAtTheBarrier)
{
    core->onCall["InitializePluginCoreInterface"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(host.globals, nullptr);
    core->onCall.clear();
}

TEST_F(Startup, FailedFileFormatDoesNotStopIt)
{
    host.RefuseSuite("AI File Format Suite", 1015, 4711);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.timers.size(), 1U);
    EXPECT_EQ(host.notifiers.size(), 12U);
    EXPECT_THAT(CallsBesidesMenus(), ::testing::Contains("PluginIsEnabled(true, false)"));
}

}  // namespace
