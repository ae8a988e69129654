#include "LibraryMenuFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const char* const kBarrier = "Unhandled exception in Typeloft plugin.";

class RebuildBeforeStartup : public MenuTest {};

TEST_F(RebuildBeforeStartup, DoesNothingButTell)
{
    core->onCall["SetRebuildWorkgroupsMenuCallback"] = [&] {
        core->rebuildWorkgroupsMenu();
        EXPECT_EQ(CountTraces(kNoHandle), 1U);
        EXPECT_EQ(core->calls.back(), "SetRebuildWorkgroupsMenuCallback(callback)");
        EXPECT_THAT(host.Calls("AIMenuSuite."), IsEmpty());
        EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
    };
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(CountTraces(kNoHandle), 1U);
    EXPECT_EQ(host.notifiers.size(), 12U);
}

TEST_F(RebuildBeforeStartup, WithoutTheSubmenuNoRebuildEverHappens)
{
    Start();
    EXPECT_EQ(Add("1", "One", "One", nullptr, true), 0U);
    EXPECT_EQ(Add("2", "select library", "Two", nullptr, true), 0U);
    Forget();
    core->rebuildWorkgroupsMenu();
    EXPECT_EQ(CountTraces(kNoHandle), 1U);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

TEST_F(RebuildBeforeStartup, SubmenuThatCouldNotBeAddedIsNone)
{
    Start();
    host.FailCall("AIMenuSuite.AddMenuItem", 1, kHostError);
    EXPECT_EQ(Add("1", kLibraryLabel, "Libraries", nullptr, true), 4711U);
    core->rebuildWorkgroupsMenu();
    EXPECT_EQ(CountTraces(kNoHandle), 1U);
}

// When PluginCore may ask for it.
class RebuildMoments : public LibraryMenuTest {
protected:
    RebuildMoments() { core->menus = With(Libraries({"A"})).dump(); }
};

TEST_F(RebuildMoments, DuringACommand)
{
    core->onCall["HandleMenuSelection"] = [&] { core->rebuildWorkgroupsMenu(); };
    EXPECT_EQ(SendGo(Item("Libraries").handle), 0);
    EXPECT_THAT(Submenu(), ElementsAre("A"));
    EXPECT_FALSE(HasTrace(kBarrier));
}

TEST_F(RebuildMoments, DuringACommandOfALibraryThatGoes)
{
    Rebuild(With(Libraries({"old"})));
    core->menus = With(Libraries({"new"})).dump();
    core->onCall["HandleMenuSelection"] = [&] { core->rebuildWorkgroupsMenu(); };
    EXPECT_EQ(SendGo(Item("old").handle), 0);
    EXPECT_THAT(Submenu(), ElementsAre("new"));
}

TEST_F(RebuildMoments, DuringAnIdleEvent)
{
    core->onCall["IdleEvent"] = [&] { core->rebuildWorkgroupsMenu(); };
    AITimerMessage tick = host.TimerMessage();
    EXPECT_EQ(host.Send(Main, "AI Timer", "AI Go", tick), 0);
    EXPECT_THAT(Submenu(), ElementsAre("A"));
}

TEST_F(RebuildMoments, ExceptionDuringAnIdleEventEndsAtTheBarrier)
{
    core->onCall["IdleEvent"] = [&] { core->rebuildWorkgroupsMenu(); };
    core->menus = With({json(5)}).dump();
    AITimerMessage tick = host.TimerMessage();
    EXPECT_EQ(host.Send(Main, "AI Timer", "AI Go", tick), 0);
    EXPECT_TRUE(HasTrace(kBarrier));
    ExpectNothingIsOut();
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
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 1);
}

}  // namespace
