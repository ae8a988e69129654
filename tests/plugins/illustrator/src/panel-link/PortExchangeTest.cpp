#include <climits>
#include <stdexcept>

#include "LinkFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// The panel's requests over an open link, and the plug-in's responses.
class PortExchange : public LinkFixture {
protected:
    // Runs `body` in a new process, with an open link and empty records.
    template <class Body>
    void WithLink(Body body)
    {
        InFreshProcess([&] {
            const ScriptedPlugPlugLibrary bus("owl-only");
            UseFrameworks("owl-only");
            ASSERT_EQ(0U, StartPlugPlug());
            ASSERT_EQ(1U, bus->listeners.size());
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
        EXPECT_EQ(1U, bus.Raise(kRequest));
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_EQ(kResponse, bus.events[0].type);
        EXPECT_EQ(1, bus.events[0].scope);
        EXPECT_EQ("test", bus.events[0].appId);
        EXPECT_FALSE(bus.events[0].extensionId.has_value());
        EXPECT_EQ("<payload><number>12345</number></payload>", bus.events[0].data);
    });
}

TEST_F(PortExchange, AsksForThePortAtEachRequest)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 1;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        core->socketPort = 2;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        EXPECT_THAT(core->calls, ElementsAre("GetSocketPort()", "GetSocketPort()"));
        ASSERT_EQ(2U, bus.events.size());
        EXPECT_EQ(Payload("1"), bus.events[0].data);
        EXPECT_EQ(Payload("2"), bus.events[1].data);
    });
}

TEST_F(PortExchange, ReadsNeitherEventNorContext)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        PortRequested(nullptr, nullptr);
        int context = 0;
        const csxs::event::Event event = {nullptr, csxs::event::EventScope(77), nullptr, nullptr,
                                          nullptr};
        PortRequested(&event, &context);
        EXPECT_EQ(2U, bus.events.size());
    });
}

TEST_F(PortExchange, SendsAPortOfZero)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 0;
        sendPortEvent();
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_EQ(Payload("0"), bus.events[0].data);
    });
}

TEST_F(PortExchange, SendsThePortAsAnUnsignedNumber)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = -1;
        sendPortEvent();
        core->socketPort = INT_MIN;
        sendPortEvent();
        core->socketPort = 65535;
        sendPortEvent();
        ASSERT_EQ(3U, bus.events.size());
        EXPECT_EQ(Payload("4294967295"), bus.events[0].data);
        EXPECT_EQ(Payload("2147483648"), bus.events[1].data);
        EXPECT_EQ(Payload("65535"), bus.events[2].data);
    });
}

TEST_F(PortExchange, SendsNothingWithoutAPortAndAnswersTheNextRequest)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        core->statuses["GetSocketPort"] = 0x02000000;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        EXPECT_THAT(bus.events, IsEmpty());
        EXPECT_THAT(bus.calls, IsEmpty());
        core->statuses.clear();
        EXPECT_EQ(1U, bus.Raise(kRequest));
        EXPECT_EQ(1U, bus.events.size());
    });
}

int gPresetPort = -1;

unsigned int KeepPort(int* port)
{
    gPresetPort = *port;
    return 0;
}

TEST_F(PortExchange, PassesAPortOfZeroToPluginCore)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core.Loader().pfGetSocketPort = KeepPort;
        sendPortEvent();
        EXPECT_EQ(0, gPresetPort);
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_EQ(Payload("0"), bus.events[0].data);
    });
}

TEST_F(PortExchange, PayloadOutlivesTheDispatch)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        sendPortEvent();
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_STREQ("<payload><number>12345</number></payload>", bus.events[0].dataAddress);
    });
}

TEST_F(PortExchange, DoesNotReportAChangeOfThePort)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 1;
        EXPECT_EQ(0, SendTick());
        core->socketPort = 2;
        EXPECT_EQ(0, SendTick());
        EXPECT_THAT(bus.events, IsEmpty());
    });
}

TEST_F(PortExchange, IgnoresOtherEvents)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        EXPECT_EQ(0U, bus.Raise(kResponse));
        EXPECT_EQ(0U, bus.Raise("com.corvanta.other"));
        EXPECT_THAT(bus.events, IsEmpty());
    });
}

TEST_F(PortExchange, DoesNotRepeatAFailedDispatch)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        bus.answers["PlugPlugDispatchEvent"] = 5;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        EXPECT_EQ(0, SendTick());
        EXPECT_EQ(1U, bus.events.size());
    });
}

// The request doesn't come in a host message, so the re-entrancy guard doesn't apply.
TEST_F(PortExchange, AnswersARequestDuringAMessage)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->socketPort = 12345;
        std::size_t answered = 0;
        core->onCall["HandleCreateNewDocument"] = [&] {
            (void)bus.Raise(kRequest);  // WithLink has checked that there is one listener
            answered = bus.events.size();
        };
        EXPECT_EQ(0, SendNotifier(kNew));
        EXPECT_EQ(1U, answered);
        core->onCall.clear();
    });
}

TEST_F(PortExchange, AnswersARequestAfterShutdown)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        EXPECT_EQ(0, SendInterface("Shutdown"));
        core->socketPort = 3;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_EQ(Payload("3"), bus.events[0].data);
    });
}

TEST_F(PortExchange, SendsNothingWithoutALink)
{
    InFreshProcess([&] {
        sendPortEvent();
        EXPECT_THAT(core->calls, ElementsAre("GetSocketPort()"));
    });
}

// The event bus calls the listener, and its code is C.
TEST_F(PortExchange, ExceptionOfPluginCoreEndsInTheListener)
{
    WithLink([&](ScriptedPlugPlug& bus) {
        core->onCall["GetSocketPort"] = [] { throw std::runtime_error("x"); };
        EXPECT_NO_THROW(EXPECT_EQ(1U, bus.Raise(kRequest)));
        core->onCall["GetSocketPort"] = [] { throw 4711; };
        EXPECT_NO_THROW(PortRequested(nullptr, nullptr));
        EXPECT_THAT(bus.events, IsEmpty());
        core->onCall.clear();
        core->socketPort = 7;
        EXPECT_EQ(1U, bus.Raise(kRequest));
        ASSERT_EQ(1U, bus.events.size());
        EXPECT_EQ(Payload("7"), bus.events[0].data);
    });
}

}  // namespace
