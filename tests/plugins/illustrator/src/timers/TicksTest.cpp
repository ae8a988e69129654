#include "TimerFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// The host has no private frameworks, so there is no link to the panel.
class Ticks : public TimerFixture {
protected:
    Ticks() { Start(); }
};

TEST_F(Ticks, EachCallsPluginCoresIdleEventAndPanelMessages)
{
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)"));
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)", "IdleEvent()",
                                         "ProcessPanelMessages(1)"));
}

TEST_F(Ticks, IgnoreTheStatusesOfPluginCore)
{
    core->statuses["IdleEvent"] = 0x02000000;
    core->statuses["ProcessPanelMessages"] = 0x03000000;
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
    AITimerMessage message = host.TimerMessage();
    EXPECT_EQ(0, GoTimer(&message));
}

TEST_F(Ticks, DoNotReadTheMessage)
{
    EXPECT_EQ(0, GoTimer(nullptr));
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, WriteNoTraceIfTheLinkFails)
{
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(Ticks, MakeNoHostCall)
{
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(CallsBesidesComparisons(), IsEmpty());
}

TEST_F(Ticks, AreRefusedDuringAnotherMessageAndNotRepeated)
{
    std::vector<AIErr> nested;
    core->onCall["HandleCreateNewDocument"] = [&] {
        nested.push_back(SendTick());
        nested.push_back(SendTick());
    };
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_THAT(nested, ElementsAre(1, 1));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument",
                                                 "IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, ContinueAfterAnExceptionOfPluginCore)
{
    core->onCall["IdleEvent"] = [] { throw 4711; };
    EXPECT_EQ(0, SendTick());
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    core->onCall.clear();
    core->calls.clear();
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, CallPluginCoreEvenIfDisabled)
{
    core->enabled = false;
    EXPECT_EQ(0, SendTick());
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

}  // namespace
