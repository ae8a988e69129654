#include "LinkFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PanelLinkFailure : public LinkFixture {};

TEST_F(PanelLinkFailure, Returns31WithoutATraceIfTheFrameworkIsMissing)
{
    InFreshProcess([&] {
        UseFrameworks("none");
        EXPECT_EQ(31U, StartPlugPlug());
        EXPECT_EQ(31U, StartPlugPlug());
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, MakesNoLinkIfTheFrameworkLacksAFunction)
{
    InFreshProcess([&] {
        UseFrameworks("missing-PlugPlugDispatchEvent");
        const ScriptedPlugPlugLibrary bus("missing-PlugPlugDispatchEvent");
        EXPECT_EQ(31U, StartPlugPlug());
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(bus->calls, IsEmpty());
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, UsesAFrameworkThatIsAddedLater)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("none");
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(0, SendTick());
        UseFrameworks("owl-only");
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(1U, bus->listeners.size());
        EXPECT_EQ(1U, bus->events.size());
    });
}

TEST_F(PanelLinkFailure, RegistersTwiceIfTheListenerFailsOnce)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("listener-fails-once");
        UseFrameworks("listener-fails-once");
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(core->CalledNames(),
                    ElementsAre("RegisterPlugPlug", "IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(bus->events, IsEmpty());
        core->calls.clear();
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(core->CalledNames(), ElementsAre("RegisterPlugPlug", "GetSocketPort",
                                                     "IdleEvent", "ProcessPanelMessages"));
        EXPECT_EQ(2U, bus->attempts.size());
        EXPECT_EQ(1U, bus->events.size());
        core->calls.clear();
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
    });
}

TEST_F(PanelLinkFailure, Returns0AndTriesAgainIfTheListenerFails)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        bus->answers["PlugPlugAddEventListener"] = 7;
        for (int attempt = 0; attempt < 20; ++attempt) EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(20U, bus->attempts.size());
        EXPECT_EQ(std::vector<std::string>(20, "RegisterPlugPlug"), core->CalledNames());
        EXPECT_THAT(bus->events, IsEmpty());
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, EachAttemptLoadsAgain)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary first("owl-only");
        const ScriptedPlugPlugLibrary second("both");
        first->answers["PlugPlugAddEventListener"] = 7;
        UseFrameworks("owl-only");
        EXPECT_EQ(0U, StartPlugPlug());
        UseFrameworks("both");
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, first->attempts.size());
        EXPECT_EQ(1U, second->listeners.size());
        EXPECT_EQ(1U, second->events.size());
    });
}

TEST_F(PanelLinkFailure, KeepsTheLinkIfTheDispatchFails)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        bus->answers["PlugPlugDispatchEvent"] = 5;
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, bus->attempts.size());
        EXPECT_EQ(1U, bus->events.size());
    });
}

}  // namespace
