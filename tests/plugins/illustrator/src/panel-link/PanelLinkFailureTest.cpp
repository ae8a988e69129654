#include "LinkTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PanelLinkFailure : public LinkTest {};

TEST_F(PanelLinkFailure, MissingFrameworkGives31AtEachTickWithoutATrace)
{
    InFreshProcess([&] {
        UseFrameworks("none");
        EXPECT_EQ(StartPlugPlug(), 31U);
        EXPECT_EQ(StartPlugPlug(), 31U);
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, FrameworkThatLacksANameIsNoLink)
{
    InFreshProcess([&] {
        UseFrameworks("missing-PlugPlugDispatchEvent");
        const ScriptedPlugPlugLibrary bus("missing-PlugPlugDispatchEvent");
        EXPECT_EQ(StartPlugPlug(), 31U);
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(bus->calls, IsEmpty());
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, FrameworkThatComesLaterIsTakenAtTheNextTick)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("none");
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(SendTick(), 0);
        UseFrameworks("owl-only");
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(bus->listeners.size(), 1U);
        EXPECT_EQ(bus->events.size(), 1U);
    });
}

TEST_F(PanelLinkFailure, ListenerThatFailsOnceMeansRegisteringTwice)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("listener-fails-once");
        UseFrameworks("listener-fails-once");
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(core->CalledNames(),
                    ElementsAre("RegisterPlugPlug", "IdleEvent", "ProcessPanelMessages"));
        EXPECT_THAT(bus->events, IsEmpty());
        core->calls.clear();
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(core->CalledNames(), ElementsAre("RegisterPlugPlug", "GetSocketPort",
                                                     "IdleEvent", "ProcessPanelMessages"));
        EXPECT_EQ(bus->attempts.size(), 2U);
        EXPECT_EQ(bus->events.size(), 1U);
        core->calls.clear();
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
    });
}

TEST_F(PanelLinkFailure, ListenerThatFailsGivesZeroAndIsTriedWithoutEnd)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        bus->answers["PlugPlugAddEventListener"] = 7;
        for (int attempt = 0; attempt < 20; ++attempt) EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->attempts.size(), 20U);
        EXPECT_EQ(core->CalledNames(), std::vector<std::string>(20, "RegisterPlugPlug"));
        EXPECT_THAT(bus->events, IsEmpty());
        EXPECT_THAT(TraceTexts(), IsEmpty());
    });
}

TEST_F(PanelLinkFailure, EachAttemptLoadsAnew)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary first("owl-only");
        const ScriptedPlugPlugLibrary second("both");
        first->answers["PlugPlugAddEventListener"] = 7;
        UseFrameworks("owl-only");
        EXPECT_EQ(StartPlugPlug(), 0U);
        UseFrameworks("both");
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(first->attempts.size(), 1U);
        EXPECT_EQ(second->listeners.size(), 1U);
        EXPECT_EQ(second->events.size(), 1U);
    });
}

TEST_F(PanelLinkFailure, FailedDispatchIsDroppedAndTheLinkStands)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        bus->answers["PlugPlugDispatchEvent"] = 5;
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->attempts.size(), 1U);
        EXPECT_EQ(bus->events.size(), 1U);
    });
}

}  // namespace
