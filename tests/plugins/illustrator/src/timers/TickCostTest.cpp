#include <memory>
#include <string>

#include "AllocationCounter.h"
#include "FreshProcess.h"
#include "MessageFixture.h"
#include "ScriptedPlugPlugLibrary_Linux.h"
#include "TimerHandler.h"

namespace {

std::size_t gIdleEvents = 0;
std::size_t gPanelCalls = 0;

// PluginCore's two functions without the double's own record of calls, which allocates.
unsigned int CountIdleEvent()
{
    ++gIdleEvents;
    return 0;
}

unsigned int CountProcessPanelMessages(int)
{
    ++gPanelCalls;
    return 0;
}

class TickCost : public MessageTest {
protected:
    TickCost() : plugPlug("owl-only")
    {
        host.privateFrameworksPath = ScriptedPlugPlugFolder("owl-only");
        Start();
        core.Loader().pfIdleEvent = CountIdleEvent;
        core.Loader().pfProcessPanelMessages = CountProcessPanelMessages;
        message = host.TimerMessage();
        gIdleEvents = 0;
        gPanelCalls = 0;
    }

    ScriptedPlugPlugLibrary plugPlug;
    AITimerMessage message{};
};

TEST_F(TickCost, CounterCounts)
{
    const std::size_t allocations = AllocationCounter::Allocations();
    const std::size_t frees = AllocationCounter::Frees();
    // Through the functions themselves: a new-expression may be optimized away.
    ::operator delete(::operator new(16));
    EXPECT_EQ(AllocationCounter::Allocations(), allocations + 1);
    EXPECT_EQ(AllocationCounter::Frees(), frees + 1);
}

TEST_F(TickCost, NothingIsAllocatedAndNothingTracedWhenTheLinkStands)
{
    // The link never goes down again in a process.
    InFreshProcess([&] {
        ASSERT_TRUE(plugPlug);
        ASSERT_EQ(GoTimer(&message), 0);
        ASSERT_EQ(StartPlugPlug(), 0U);
        ASSERT_EQ(plugPlug->listeners.size(), 1U);
        Forget();
        gIdleEvents = 0;
        gPanelCalls = 0;

        constexpr std::size_t kTicks = 1000;
        int results = 0;
        const std::size_t allocations = AllocationCounter::Allocations();
        const std::size_t frees = AllocationCounter::Frees();
        for (std::size_t tick = 0; tick < kTicks; ++tick) results |= GoTimer(&message);
        const std::size_t allocated = AllocationCounter::Allocations() - allocations;
        const std::size_t freed = AllocationCounter::Frees() - frees;

        EXPECT_EQ(allocated, 0U);
        EXPECT_EQ(freed, 0U);
        EXPECT_EQ(results, 0);
        EXPECT_EQ(gIdleEvents, kTicks);
        EXPECT_EQ(gPanelCalls, kTicks);
        EXPECT_TRUE(Traces().empty());
        EXPECT_TRUE(host.Calls().empty());
        EXPECT_TRUE(core->calls.empty());
    });
}

}  // namespace
