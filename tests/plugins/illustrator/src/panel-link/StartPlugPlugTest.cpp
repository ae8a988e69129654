#include "LinkTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PanelLink : public LinkTest {};

TEST_F(PanelLink, FirstTickBringsItUpAndSendsOneResponse)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->socketPort = 12345;
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(bus->calls, ElementsAre("PlugPlugAddEventListener", "PlugPlugDispatchEvent"));
        EXPECT_THAT(core->calls, ElementsAre("RegisterPlugPlug(plugPlug)", "GetSocketPort()",
                                             "IdleEvent()", "ProcessPanelMessages(1)"));
        ASSERT_EQ(bus->events.size(), 1U);
        EXPECT_EQ(bus->events[0].data, Payload("12345"));
    });
}

TEST_F(PanelLink, ListensForThePanelsRequest)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(StartPlugPlug(), 0U);
        ASSERT_EQ(bus->listeners.size(), 1U);
        EXPECT_EQ(bus->listeners[0].type, kRequest);
        EXPECT_EQ(bus->listeners[0].handler, &PortRequested);
        EXPECT_EQ(bus->listeners[0].context, nullptr);
    });
}

TEST_F(PanelLink, StartsNothingBeforeTheFirstTick)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        EXPECT_EQ(SendInterface("Startup"), 0);
        EXPECT_THAT(bus->calls, IsEmpty());
        EXPECT_THAT(core->CalledNames(), ::testing::Not(::testing::Contains("RegisterPlugPlug")));
    });
}

TEST_F(PanelLink, LaterTicksNeitherLoadNorSend)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(SendTick(), 0);
        Forget();
        UseFrameworks("plain-only");
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(bus->attempts.size(), 1U);
        EXPECT_EQ(bus->events.size(), 1U);
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages",
                                                     "IdleEvent", "ProcessPanelMessages"));
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->events.size(), 1U);
    });
}

TEST_F(PanelLink, ListenerIsAddedBeforePluginCoreGetsTheBinding)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        std::vector<std::string> order;
        bus->onCall["PlugPlugAddEventListener"] = [&] { order.emplace_back("listener"); };
        bus->onCall["PlugPlugDispatchEvent"] = [&] { order.emplace_back("event"); };
        core->onCall["RegisterPlugPlug"] = [&] { order.emplace_back("register"); };
        core->onCall["GetSocketPort"] = [&] { order.emplace_back("port"); };
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_THAT(order, ElementsAre("listener", "register", "port", "event"));
        core->onCall.clear();
    });
}

const SDKPlugPlug* gRegistered = nullptr;
SDKPlugPlug gAsRegistered;

unsigned int KeepBinding(SDKPlugPlug* binding)
{
    gRegistered = binding;
    gAsRegistered = *binding;
    return 9;
}

TEST_F(PanelLink, BindingIsWholeWhenItIsHandedOverAndStaysWhereItIs)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core.Loader().pfRegisterPlugPlug = KeepBinding;
        EXPECT_EQ(StartPlugPlug(), 0U);
        ASSERT_NE(gRegistered, nullptr);
        EXPECT_NE(gAsRegistered.bundle, nullptr);
        EXPECT_EQ(reinterpret_cast<void*>(gAsRegistered.PlugPlugDispatchEvent),
                  bus.Find("PlugPlugDispatchEvent"));
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        EXPECT_EQ(gRegistered->bundle, gAsRegistered.bundle);
        EXPECT_EQ(gRegistered->PlugPlugDispatchEvent, gAsRegistered.PlugPlugDispatchEvent);
    });
}

TEST_F(PanelLink, AnswerOfPluginCoreIsDropped)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->statuses["RegisterPlugPlug"] = 0x02000000;
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->events.size(), 1U);
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->attempts.size(), 1U);
    });
}

TEST_F(PanelLink, StandsThoughTheFirstResponseCannotBeSent)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->statuses["GetSocketPort"] = 0x02000000;
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_THAT(bus->events, IsEmpty());
        core->statuses.clear();
        EXPECT_EQ(StartPlugPlug(), 0U);
        EXPECT_EQ(bus->attempts.size(), 1U);
        EXPECT_THAT(bus->events, IsEmpty());
    });
}

TEST_F(PanelLink, StaysThroughShutdownAndANewStartup)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        EXPECT_EQ(bus->listeners.size(), 1U);
        EXPECT_EQ(bus->CountCalls("PlugPlugRemoveEventListener"), 0U);
        EXPECT_EQ(SendInterface("Startup"), 0);
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(bus->attempts.size(), 1U);
        EXPECT_EQ(bus->events.size(), 1U);
    });
}

TEST_F(PanelLink, ExtensionsAreNeitherLoadedNorUnloaded)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(SendTick(), 0);
        (void)bus->Raise(kRequest);  // the number of listeners is another test's
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        EXPECT_EQ(bus->CountCalls("PlugPlugLoadExtension"), 0U);
        EXPECT_EQ(bus->CountCalls("PlugPlugUnloadExtension"), 0U);
    });
}

}  // namespace
