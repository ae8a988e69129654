#include "LinkFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PanelLink : public LinkFixture {};

TEST_F(PanelLink, FirstTickOpensTheLinkAndSendsOneResponse)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->socketPort = 12345;
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(bus->calls, ElementsAre("PlugPlugAddEventListener", "PlugPlugDispatchEvent"));
        EXPECT_THAT(core->calls, ElementsAre("RegisterPlugPlug(plugPlug)", "GetSocketPort()",
                                             "IdleEvent()", "ProcessPanelMessages(1)"));
        ASSERT_EQ(1U, bus->events.size());
        EXPECT_EQ(Payload("12345"), bus->events[0].data);
    });
}

TEST_F(PanelLink, ListensForThePanelsRequest)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(0U, StartPlugPlug());
        ASSERT_EQ(1U, bus->listeners.size());
        EXPECT_EQ(kRequest, bus->listeners[0].type);
        EXPECT_EQ(&PortRequested, bus->listeners[0].handler);
        EXPECT_EQ(nullptr, bus->listeners[0].context);
    });
}

TEST_F(PanelLink, StartsNothingBeforeTheFirstTick)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(0, SendInterface("Shutdown"));
        EXPECT_EQ(0, SendInterface("Startup"));
        EXPECT_THAT(bus->calls, IsEmpty());
        EXPECT_THAT(core->CalledNames(), ::testing::Not(::testing::Contains("RegisterPlugPlug")));
    });
}

TEST_F(PanelLink, LaterTicksNeitherLoadNorSend)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(0, SendTick());
        Forget();
        UseFrameworks("plain-only");
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(1U, bus->attempts.size());
        EXPECT_EQ(1U, bus->events.size());
        EXPECT_THAT(core->CalledNames(), ElementsAre("IdleEvent", "ProcessPanelMessages",
                                                     "IdleEvent", "ProcessPanelMessages"));
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, bus->events.size());
    });
}

TEST_F(PanelLink, AddsTheListenerBeforePluginCoreGetsTheBinding)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        std::vector<std::string> order;
        bus->onCall["PlugPlugAddEventListener"] = [&] { order.emplace_back("listener"); };
        bus->onCall["PlugPlugDispatchEvent"] = [&] { order.emplace_back("event"); };
        core->onCall["RegisterPlugPlug"] = [&] { order.emplace_back("register"); };
        core->onCall["GetSocketPort"] = [&] { order.emplace_back("port"); };
        EXPECT_EQ(0U, StartPlugPlug());
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

TEST_F(PanelLink, PassesACompleteBindingThatRemainsValid)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core.Loader().pfRegisterPlugPlug = KeepBinding;
        EXPECT_EQ(0U, StartPlugPlug());
        ASSERT_NE(nullptr, gRegistered);
        EXPECT_NE(nullptr, gAsRegistered.bundle);
        EXPECT_EQ(bus.Find("PlugPlugDispatchEvent"),
                  reinterpret_cast<void*>(gAsRegistered.PlugPlugDispatchEvent));
        EXPECT_EQ(0, SendInterface("Shutdown"));
        EXPECT_EQ(gAsRegistered.bundle, gRegistered->bundle);
        EXPECT_EQ(gAsRegistered.PlugPlugDispatchEvent, gRegistered->PlugPlugDispatchEvent);
    });
}

TEST_F(PanelLink, IgnoresTheStatusOfPluginCore)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->statuses["RegisterPlugPlug"] = 0x02000000;
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, bus->events.size());
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, bus->attempts.size());
    });
}

TEST_F(PanelLink, RemainsOpenIfTheFirstResponseCannotBeSent)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        core->statuses["GetSocketPort"] = 0x02000000;
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_THAT(bus->events, IsEmpty());
        core->statuses.clear();
        EXPECT_EQ(0U, StartPlugPlug());
        EXPECT_EQ(1U, bus->attempts.size());
        EXPECT_THAT(bus->events, IsEmpty());
    });
}

TEST_F(PanelLink, RemainsOpenAfterShutdownAndANewStartup)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(0, SendInterface("Shutdown"));
        EXPECT_EQ(1U, bus->listeners.size());
        EXPECT_EQ(0U, bus->CountCalls("PlugPlugRemoveEventListener"));
        EXPECT_EQ(0, SendInterface("Startup"));
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(1U, bus->attempts.size());
        EXPECT_EQ(1U, bus->events.size());
    });
}

TEST_F(PanelLink, NeitherLoadsNorUnloadsExtensions)
{
    InFreshProcess([&] {
        const ScriptedPlugPlugLibrary bus("owl-only");
        UseFrameworks("owl-only");
        EXPECT_EQ(0, SendTick());
        (void)bus->Raise(kRequest);  // another test checks the number of listeners
        EXPECT_EQ(0, SendInterface("Shutdown"));
        EXPECT_EQ(0U, bus->CountCalls("PlugPlugLoadExtension"));
        EXPECT_EQ(0U, bus->CountCalls("PlugPlugUnloadExtension"));
    });
}

}  // namespace
