#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class RebuildBeforeStartup : public MenuFixture {};

TEST_F(RebuildBeforeStartup, OnlyWritesATrace)
{
    core->onCall["SetRebuildWorkgroupsMenuCallback"] = [&] {
        core->rebuildWorkgroupsMenu();
        EXPECT_EQ(1U, CountTraces(kNoHandle));
        EXPECT_EQ("SetRebuildWorkgroupsMenuCallback(callback)", core->calls.back());
        EXPECT_THAT(host.Calls("AIMenuSuite."), IsEmpty());
        EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
    };
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(1U, CountTraces(kNoHandle));
    EXPECT_EQ(12U, host.notifiers.size());
}

TEST_F(RebuildBeforeStartup, NeverRebuildsWithoutTheSubmenu)
{
    Start();
    EXPECT_EQ(0U, Add("1", "One", "One", nullptr, true));
    EXPECT_EQ(0U, Add("2", "select library", "Two", nullptr, true));
    Forget();
    core->rebuildWorkgroupsMenu();
    EXPECT_EQ(1U, CountTraces(kNoHandle));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

TEST_F(RebuildBeforeStartup, TreatsASubmenuThatCouldNotBeAddedAsMissing)
{
    Start();
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(4711U, Add("1", kSelectLibrary, "Libraries", nullptr, true));
    core->rebuildWorkgroupsMenu();
    EXPECT_EQ(1U, CountTraces(kNoHandle));
}

// The moments at which PluginCore can call for a rebuild.
class RebuildMoments : public LibraryMenuFixture {
protected:
    RebuildMoments() { core->menus = With(Libraries({"A"})).dump(); }
};

TEST_F(RebuildMoments, DuringACommand)
{
    core->onCall["HandleMenuSelection"] = [&] { core->rebuildWorkgroupsMenu(); };
    EXPECT_EQ(0, SendGo(Item("Libraries").handle));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_FALSE(HasTrace(kBarrier));
}

TEST_F(RebuildMoments, DuringACommandOfALibraryThatIsRemoved)
{
    Rebuild(With(Libraries({"old"})));
    core->menus = With(Libraries({"new"})).dump();
    core->onCall["HandleMenuSelection"] = [&] { core->rebuildWorkgroupsMenu(); };
    EXPECT_EQ(0, SendGo(Item("old").handle));
    EXPECT_THAT(Submenu(), ElementsAre("new"));
}

TEST_F(RebuildMoments, DuringAnIdleEvent)
{
    core->onCall["IdleEvent"] = [&] { core->rebuildWorkgroupsMenu(); };
    AITimerMessage tick = host.TimerMessage();
    EXPECT_EQ(0, host.Send(Main, "AI Timer", "AI Go", tick));
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildMoments, ExceptionDuringAnIdleEventReachesTheBarrier)
{
    core->onCall["IdleEvent"] = [&] { core->rebuildWorkgroupsMenu(); };
    core->menus = With({json(5)}).dump();
    AITimerMessage tick = host.TimerMessage();
    EXPECT_EQ(0, host.Send(Main, "AI Timer", "AI Go", tick));
    EXPECT_TRUE(HasTrace(kBarrier));
    ExpectAllReleased();
}

TEST_F(RebuildMoments, OutsideOfAnyMessage)
{
    core->rebuildWorkgroupsMenu();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildMoments, WhileTheMenusAreBeingAdded)
{
    MenuItemHelp help;
    core->rebuildWorkgroupsMenu();
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_EQ(1, host.SuiteReferences("AI Menu Suite", 1011));
}

}  // namespace
