#include <climits>

#include "LinkTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// The panel asks, the plug-in answers, over a link that stands.
class PortExchange : public LinkTest {
protected:
    // Brings the link up in the child that the body runs in, and forgets what that called.
    template <class Body>
    void WithLink(Body body)
    {
        InFreshProcess([&] {
            const ScriptedPlugPlugLibrary bus("owl-only");
            UseFrameworks("owl-only");
            ASSERT_EQ(StartPlugPlug(), 0U);
            ASSERT_EQ(bus->listeners.size(), 1U);
            bus->events.clear();
            bus->calls.clear();
            Forget();
            body(bus.State());
        });
    }
};

TEST_F(PortExchange, ResponseHasAllItsFields)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        ASSERT_EQ(bus.events.size(), 1U);
        EXPECT_EQ(bus.events[0].type, kResponse);
        EXPECT_EQ(bus.events[0].scope, 1);
        EXPECT_EQ(bus.events[0].appId, "test");
        EXPECT_FALSE(bus.events[0].extensionId.has_value());
        EXPECT_EQ(bus.events[0].data, "<payload><number>12345</number></payload>");
    });
}

TEST_F(PortExchange, EachRequestAsksForThePortAnew)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 1;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        core->socketPort = 2;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        EXPECT_THAT(core->calls, ElementsAre("GetSocketPort()", "GetSocketPort()"));
        ASSERT_EQ(bus.events.size(), 2U);
        EXPECT_EQ(bus.events[0].data, Payload("1"));
        EXPECT_EQ(bus.events[1].data, Payload("2"));
    });
}

TEST_F(PortExchange, NeitherRecordNorContextIsRead)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        PortRequested(nullptr, nullptr);
        int context = 0;
        const csxs::event::Event event = {nullptr, csxs::event::EventScope(77), nullptr, nullptr,
                                          nullptr};
        PortRequested(&event, &context);
        EXPECT_EQ(bus.events.size(), 2U);
    });
}

TEST_F(PortExchange, PortOfZeroIsSentAsItIs)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 0;
        sendPortEvent();
        ASSERT_EQ(bus.events.size(), 1U);
        EXPECT_EQ(bus.events[0].data, Payload("0"));
    });
}

TEST_F(PortExchange, PortIsAnUnsignedNumber)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = -1;
        sendPortEvent();
        core->socketPort = INT_MIN;
        sendPortEvent();
        core->socketPort = 65535;
        sendPortEvent();
        ASSERT_EQ(bus.events.size(), 3U);
        EXPECT_EQ(bus.events[0].data, Payload("4294967295"));
        EXPECT_EQ(bus.events[1].data, Payload("2147483648"));
        EXPECT_EQ(bus.events[2].data, Payload("65535"));
    });
}

TEST_F(PortExchange, FailedPortSendsNothingAndThePanelAsksAgain)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        core->statuses["GetSocketPort"] = 0x02000000;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        EXPECT_THAT(bus.events, IsEmpty());
        EXPECT_THAT(bus.calls, IsEmpty());
        core->statuses.clear();
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        EXPECT_EQ(bus.events.size(), 1U);
    });
}

int gPresetPort = -1;

unsigned int LeavePortAsItIs(int* port)
{
    gPresetPort = *port;
    return 0;
}

TEST_F(PortExchange, PortIsZeroBeforeItIsAskedFor)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core.Loader().pfGetSocketPort = LeavePortAsItIs;
        sendPortEvent();
        EXPECT_EQ(gPresetPort, 0);
        ASSERT_EQ(bus.events.size(), 1U);
        EXPECT_EQ(bus.events[0].data, Payload("0"));
    });
}

TEST_F(PortExchange, PayloadOutlivesTheDispatch)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        sendPortEvent();
        ASSERT_EQ(bus.events.size(), 1U);
        EXPECT_STREQ(bus.events[0].dataAddress, "<payload><number>12345</number></payload>");
    });
}

TEST_F(PortExchange, ChangeOfPortIsNotToldByItself)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 1;
        EXPECT_EQ(SendTick(), 0);
        core->socketPort = 2;
        EXPECT_EQ(SendTick(), 0);
        EXPECT_THAT(bus.events, IsEmpty());
    });
}

TEST_F(PortExchange, OtherEventsAreNotListenedTo)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        EXPECT_EQ(bus.Raise(kResponse), 0U);
        EXPECT_EQ(bus.Raise("com.corvanta.other"), 0U);
        EXPECT_THAT(bus.events, IsEmpty());
    });
}

TEST_F(PortExchange, FailedDispatchIsNotRetried)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        bus.answers["PlugPlugDispatchEvent"] = 5;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        EXPECT_EQ(SendTick(), 0);
        EXPECT_EQ(bus.events.size(), 1U);
    });
}

// The request comes from the bus and not from the host, so nothing holds it back.
TEST_F(PortExchange, RequestIsAnsweredInTheMiddleOfAMessage)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        std::size_t answered = 0;
        core->onCall["HandleCreateNewDocument"] = [&] {
            (void)bus.Raise(kRequest);  // that there is a listener is known
            answered = bus.events.size();
        };
        EXPECT_EQ(SendNotifier(kNew), 0);
        EXPECT_EQ(answered, 1U);
        core->onCall.clear();
    });
}

TEST_F(PortExchange, IsServedAfterShutdown)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        EXPECT_EQ(SendInterface("Shutdown"), 0);
        core->socketPort = 3;
        EXPECT_EQ(bus.Raise(kRequest), 1U);
        ASSERT_EQ(bus.events.size(), 1U);
        EXPECT_EQ(bus.events[0].data, Payload("3"));
    });
}

// Without a bus the port is asked for and goes nowhere.
TEST_F(PortExchange, BeforeTheLinkThePortGoesNowhere)
{
    InFreshProcess([&] {
        sendPortEvent();
        EXPECT_THAT(core->calls, ElementsAre("GetSocketPort()"));
    });
}

}  // namespace
