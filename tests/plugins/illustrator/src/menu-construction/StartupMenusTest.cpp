#include <algorithm>
#include <stdexcept>

#include "MenuFixture.h"

using ::testing::IsEmpty;

namespace {

const char* const kAcquireBlocks = "SPBasicSuite.AcquireSuite(\"SP Blocks Suite\", 2)";

class StartupMenus : public MenuTest {
protected:
    // Where among PluginCore's calls a name first stands.
    std::ptrdiff_t PlaceOf(const std::string& name)
    {
        const std::vector<std::string> names = core->CalledNames();
        const auto found = std::find(names.begin(), names.end(), name);
        EXPECT_NE(found, names.end()) << name;
        return found - names.begin();
    }
};

TEST_F(StartupMenus, CallbackForTheLibrariesIsHandedOverFirst)
{
    std::size_t blocks = 99;
    host.ClearCalls();
    core->onCall["SetRebuildWorkgroupsMenuCallback"] = [&] {
        blocks = host.CountCalls(kAcquireBlocks);
        EXPECT_EQ(host.CountCalls("SPBlocksSuite."), 0U);
        EXPECT_EQ(gGlobals, nullptr);
    };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(core->rebuildWorkgroupsMenu, &RebuildWorkgroupsMenu);
    // Of the two times one belongs to the table, which the message itself has filled.
    EXPECT_EQ(blocks, 1U);
    EXPECT_EQ(PlaceOf("SetRebuildWorkgroupsMenuCallback"),
              PlaceOf("InitializePluginCoreInterface") + 1);
}

TEST_F(StartupMenus, CallbackIsHandedOverOnce)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(core->calls, ::testing::Contains("SetRebuildWorkgroupsMenuCallback(callback)"));
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    const std::vector<std::string> names = core->CalledNames();
    EXPECT_EQ(std::count(names.begin(), names.end(), "SetRebuildWorkgroupsMenuCallback"), 1);
}

TEST_F(StartupMenus, RefusedInitializationHandsNothingOver)
{
    core->statuses["InitializePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(core->rebuildWorkgroupsMenu, nullptr);
    EXPECT_EQ(core->addIllustratorMenu, nullptr);
}

TEST_F(StartupMenus, ItemsAreAddedWithTheGlobalsAndBeforeTheNotifiers)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        ASSERT_NE(gGlobals, nullptr);
        EXPECT_EQ(gGlobals->pluginRef, host.Head().self);
        EXPECT_EQ(gGlobals->fileFormatHandle, nullptr);
        EXPECT_THAT(host.notifiers, IsEmpty());
        EXPECT_EQ(core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false, nullptr,
                                           core->menuItemHelp),
                  0U);
    };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(Item("Fonts").self, host.Head().self);
    EXPECT_EQ(host.notifiers.size(), 12U);
    EXPECT_LT(PlaceOf("CreateMenusFromJSONBuffer"), PlaceOf("PluginIsEnabled"));
}

TEST_F(StartupMenus, TextGoesToPluginCoreAsItCame)
{
    core->menus = R"({"title": "not even whole)";
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_THAT(core->calls,
                ::testing::Contains(R"(CreateMenusFromJSONBuffer("{"title": "not even whole"))"));
    EXPECT_EQ(host.notifiers.size(), 12U);
}

TEST_F(StartupMenus, FailureSkipsTheNotifiersAlone)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_NE(host.globals, nullptr);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_EQ(host.fileFormats.size(), 1U);
    EXPECT_EQ(host.timers.size(), 1U);
    EXPECT_TRUE(HasTrace("Entering SetupIllustratorDialogSuppression(1)"));
    EXPECT_FALSE(HasTrace("...acquiring notifier suite"));
    EXPECT_FALSE(HasTrace("StartupPlugin, after catching an error\n"));
}

TEST_F(StartupMenus, FileCheckWorksAfterTheFailure)
{
    core->statuses["CreateMenusFromJSONBuffer"] = 0x04000000;
    EXPECT_EQ(SendInterface("Startup"), 0);
    Forget();
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(core->CalledNames().at(1), "HandleOpenExistingDocument");
}

TEST_F(StartupMenus, FailureOfOneItemIsPluginCoresBusiness)
{
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        EXPECT_EQ(core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false, nullptr,
                                           core->menuItemHelp),
                  4711U);
    };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.notifiers.size(), 12U);
}

TEST_F(StartupMenus, RefusedMenuSuiteIsTheResult)
{
    ASSERT_EQ(SendInterface("Other"), 0);
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_EQ(SendInterface("Startup"), kHostError);
    EXPECT_TRUE(HasTrace("StartupPlugin, after catching an error\n"));
    EXPECT_NE(host.globals, nullptr);
    EXPECT_THAT(host.notifiers, IsEmpty());
    EXPECT_THAT(host.fileFormats, IsEmpty());
    EXPECT_THAT(host.timers, IsEmpty());
    EXPECT_EQ(host.SuiteReferences("SP Blocks Suite", 2), 1);
}

TEST_F(StartupMenus, ExceptionOfPluginCoreEndsAtTheBarrier)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
    EXPECT_THAT(host.notifiers, IsEmpty());
}

TEST_F(StartupMenus, MenuSuiteIsOutNoLongerThanNeeded)
{
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)"), 1U);
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

TEST_F(StartupMenus, ShutdownLeavesTheItems)
{
    core->onCall["CreateMenusFromJSONBuffer"] = [&] {
        (void)core->addIllustratorMenu("1", "Fonts", "Fonts", false, true, false, nullptr,
                                       core->menuItemHelp);
    };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(host.CountCalls("AIMenuSuite.RemoveMenuItem"), 0U);
    EXPECT_EQ(LiveTexts(), std::vector<std::string>{"Fonts"});
}

}  // namespace
