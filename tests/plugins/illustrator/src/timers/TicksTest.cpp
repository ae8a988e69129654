#include "TimerTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// A host without private frameworks: the link to the panel never stands.
class Ticks : public TimerTest {
protected:
    Ticks() { Start(); }
};

TEST_F(Ticks, EachGivesPluginCoreItsTimeAndItsPanelMessages)
{
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)"));
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)", "IdleEvent()",
                                         "ProcessPanelMessages(1)"));
}

TEST_F(Ticks, AnswersAreDropped)
{
    core->statuses["IdleEvent"] = 0x02000000;
    core->statuses["ProcessPanelMessages"] = 0x03000000;
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
    AITimerMessage message = host.TimerMessage();
    EXPECT_EQ(GoTimer(&message), 0);
}

TEST_F(Ticks, MessageIsNotRead)
{
    EXPECT_EQ(GoTimer(nullptr), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, LeaveNoTraceThoughTheLinkFails)
{
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(Ticks, AskTheHostNothing)
{
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(CallsBesidesComparisons(), IsEmpty());
}

TEST_F(Ticks, InsideAnotherMessageAreDroppedAndNotMadeUpFor)
{
    std::vector<AIErr> nested;
    core->onCall["HandleCreateNewDocument"] = [&] {
        nested.push_back(SendTick());
        nested.push_back(SendTick());
    };
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_THAT(nested, ElementsAre(1, 1));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument",
                                                 "IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, ExceptionOfPluginCoreEndsAtTheBarrierAndTheNextIsServed)
{
    core->onCall["IdleEvent"] = [] { throw 4711; };
    EXPECT_EQ(SendTick(), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    core->onCall.clear();
    core->calls.clear();
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

TEST_F(Ticks, DisabledPluginTicksAllTheSame)
{
    core->enabled = false;
    EXPECT_EQ(SendTick(), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages"));
}

}  // namespace
