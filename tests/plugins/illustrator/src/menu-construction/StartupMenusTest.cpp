#include <algorithm>
#include <stdexcept>

#include "MenuFixture.h"

using ::testing::IsEmpty;

namespace {

const char* const kAcquireBlocks = "SPBasicSuite.AcquireSuite(\"SP Blocks Suite\", 2)";

class StartupMenus : public MenuFixture {
protected:
    // The index of PluginCore's first call with this name.
    std::ptrdiff_t IndexOf(const std::string& name)
    {
        const std::vector<std::string> names = core->CalledNames();
        const auto found = std::find(names.begin(), names.end(), name);
        EXPECT_NE(names.end(), found) << name;
        return found - names.begin();
    }
};

TEST_F(StartupMenus, RegistersTheRebuildCallbackFirst)
{
    std::size_t blocks = 99;
    host.ClearCalls();
    core->onCall["SetRebuildWorkgroupsMenuCallback"] = [&] {
        blocks = host.CountCalls(kAcquireBlocks);
        EXPECT_EQ(0U, host.CountCalls("SPBlocksSuite."));
        EXPECT_EQ(nullptr, gGlobals);
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(&RebuildWorkgroupsMenu, core->rebuildWorkgroupsMenu);
    // So far the suite has been acquired only with the whole table, before the dispatch.
    EXPECT_EQ(1U, blocks);
    EXPECT_EQ(IndexOf("InitializePluginCoreInterface") + 1,
              IndexOf("SetRebuildWorkgroupsMenuCallback"));
}

TEST_F(StartupMenus, RegistersTheCallbackOnce)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(core->calls, ::testing::Contains("SetRebuildWorkgroupsMenuCallback(callback)"));
    EXPECT_EQ(0, SendInterface("Shutdown"));
    const std::vector<std::string> names = core->CalledNames();
    EXPECT_EQ(1, std::count(names.begin(), names.end(), "SetRebuildWorkgroupsMenuCallback"));
}

TEST_F(StartupMenus, RegistersNothingIfInitializationIsRefused)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(nullptr, core->rebuildWorkgroupsMenu);
    EXPECT_EQ(nullptr, core->addIllustratorMenu);
}

TEST_F(StartupMenus, AddsItemsAfterTheGlobalsAndBeforeTheNotifiers)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        ASSERT_NE(nullptr, gGlobals);
        EXPECT_EQ(host.Head().self, gGlobals->pluginRef);
        EXPECT_EQ(nullptr, gGlobals->fileFormatHandle);
        EXPECT_THAT(host.notifiers, IsEmpty());
        EXPECT_EQ(0U, core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false, nullptr,
                                               core->menuItemHelp));
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(host.Head().self, Item("Fonts").self);
    EXPECT_EQ(12U, host.notifiers.size());
    EXPECT_LT(IndexOf("CreateMenusFromJSONBuffer"), IndexOf("PluginIsEnabled"));
}

TEST_F(StartupMenus, PassesTheTextUnchangedToPluginCore)
{
    core->menus = R"({"title": "not even whole)";
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_THAT(core->calls,
                ::testing::Contains(R"(CreateMenusFromJSONBuffer("{"title": "not even whole"))"));
    EXPECT_EQ(12U, host.notifiers.size());
}

TEST_F(StartupMenus, SkipsOnlyTheNotifiersAfterAFailure)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_EQ(1U, host.fileFormats.size());
    EXPECT_EQ(1U, host.timers.size());
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(1)"));
    EXPECT_FALSE(HasTrace("...acquiring notifier suite"));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
}

TEST_F(StartupMenus, ChecksFilesAfterAFailure)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(0, SendInterface("Startup"));
    Forget();
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ("HandleOpenExistingDocument", core->CalledNames().at(1));
}

TEST_F(StartupMenus, ReportsTheFailureOfAnItemOnlyToPluginCore)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        EXPECT_EQ(4711U, core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false,
                                                  nullptr, core->menuItemHelp));
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(12U, host.notifiers.size());
}

TEST_F(StartupMenus, ReturnsTheCodeOfARefusedMenuSuite)
{
    ASSERT_EQ(0, SendInterface("Other"));
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(kHostError, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_EQ(1, host.SuiteReferences("SP Blocks Suite", 2));
}

TEST_F(StartupMenus, ExceptionOfPluginCoreReachesTheBarrier)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
    EXPECT_THAT(host.notifiers, IsEmpty());
}

TEST_F(StartupMenus, ReleasesTheMenuSuite)
{
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(1U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"));
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

TEST_F(StartupMenus, ShutdownDoesNotRemoveTheItems)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        (void)core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false, nullptr,
                                       core->menuItemHelp);
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0U, host.CountCalls("AIMenuSuite.RemoveMenuItem"));
    EXPECT_EQ(std::vector<std::string>{"Fonts"}, LiveTexts());
}

}  // namespace
