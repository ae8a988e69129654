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

// Replace two functions of the scripted PluginCore, whose records of calls allocate memory.
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

class TickCost : public MessageFixture {
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

TEST_F(TickCost, CounterWorks)
{
    const std::size_t allocations = AllocationCounter::Allocations();
    const std::size_t frees = AllocationCounter::Frees();
    // Calls the functions because a compiler can optimize a new-expression away.
    ::operator delete(::operator new(16));
    EXPECT_EQ(allocations + 1, AllocationCounter::Allocations());
    EXPECT_EQ(frees + 1, AllocationCounter::Frees());
}

TEST_F(TickCost, NeitherAllocatesNorTracesWithAnOpenLink)
{
    // A process never closes the link.
    InFreshProcess([&] {
        ASSERT_TRUE(plugPlug);
        ASSERT_EQ(0, GoTimer(&message));
        ASSERT_EQ(0U, StartPlugPlug());
        ASSERT_EQ(1U, plugPlug->listeners.size());
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

        EXPECT_EQ(0U, allocated);
        EXPECT_EQ(0U, freed);
        EXPECT_EQ(0, results);
        EXPECT_EQ(kTicks, gIdleEvents);
        EXPECT_EQ(kTicks, gPanelCalls);
        EXPECT_TRUE(Traces().empty());
        EXPECT_TRUE(host.Calls().empty());
        EXPECT_TRUE(core->calls.empty());
    });
}

}  // namespace
