#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// A message with the head alone, for any caller.
class Dispatch : public MessageTest {
protected:
    AIErr Send(const std::string& caller, const std::string& selector)
    {
        message = host.InterfaceMessage();
        return host.Send(Main, caller, selector, message);
    }
    std::string Arguments(const std::string& caller, const std::string& selector)
    {
        return "HandlePluginCaller(caller='" + caller + "', selector='" + selector +
               "', message=" + Low32(&message) + ")";
    }

    SPInterfaceMessage message{};
};

TEST_F(Dispatch, UnknownInterfaceSelectorIsTracedAndAnswered0)
{
    EXPECT_EQ(Send("SP Interface", "Reload"), 0);
    EXPECT_TRUE(HasTrace("- unknown message from kSPInterfaceCaller"));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, UnknownCallerDoesNothing)
{
    EXPECT_EQ(Send("AI Plugin", "AI Go"), 0);
    EXPECT_TRUE(HasTrace(Arguments("AI Plugin", "AI Go") + " doing nothing."));
}

TEST_F(Dispatch, EntryAndExitAreTraced)
{
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_TRUE(HasTrace("Entering " + Arguments("AI Plugin", "x")));
    EXPECT_TRUE(HasTrace(Arguments("AI Plugin", "x") + " returning 0"));
    EXPECT_EQ(Traces().back().indentChange, -1);
}

TEST_F(Dispatch, ExitTraceTellsTheFormatChecksAnswer)
{
    ScriptedFileFormatMessage check = host.FileFormatMessage("");
    EXPECT_EQ(host.Send(Main, "AI File Format", "AI Check", check.record), -1);
    EXPECT_TRUE(
        HasTrace("HandlePluginCaller(caller='AI File Format', selector='AI Check', message=" +
                 Low32(&check.record) + ") returning -1"));
}

TEST_F(Dispatch, MenuCallerIsTraced)
{
    EXPECT_EQ(Send("AI Menu", "AI Open"), 0);
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_TRUE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(Dispatch, UnknownSelectorsAreTraced)
{
    for (const char* const caller : {"AI Notifier", "AI File Format"}) {
        ClearTraces();
        EXPECT_EQ(Send(caller, "AI Other"), 0) << caller;
        EXPECT_EQ(CountTraces("...UNHANDLED SELECTOR"), 1U) << caller;
        EXPECT_EQ(CountTraces("- caller is kCallerAIMenu"), 0U) << caller;
    }
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, TimerWithAnotherSelectorLeavesNoTrace)
{
    EXPECT_EQ(Send("AI Timer", "AI Stop"), 0);
    EXPECT_THAT(TraceTexts(), IsEmpty());
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, TimerTickIsAnswered0WithoutEntryTrace)
{
    Start();
    EXPECT_EQ(Send("AI Timer", "AI Go"), 0);
    EXPECT_FALSE(HasTraceBeginningWith("Entering HandlePluginCaller"));
    EXPECT_FALSE(HasTraceBeginningWith("HandlePluginCaller"));
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)"));
}

TEST_F(Dispatch, UnloadIsRefusedFromStartupToShutdown)
{
    EXPECT_EQ(Send("SP Access", "Unload"), 0);
    ASSERT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(Send("SP Access", "Unload"), 1);
    EXPECT_EQ(SendInterface("Shutdown"), 0);
    EXPECT_EQ(Send("SP Access", "Unload"), 0);
}

TEST_F(Dispatch, OtherAccessSelectorsAreAnswered0)
{
    Start();
    EXPECT_EQ(Send("SP Access", "Reload"), 0);
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(Dispatch, FileCheckIsAnsweredMinusOneWhateverItFinds)
{
    Start();
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(SendCheck(""), -1);
    core->enabled = false;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
}

TEST_F(Dispatch, TextsAreComparedByTheHostOnly)
{
    host.isEqual = [](const char* a, const char* b) {
        return std::string(a) == "anything" || std::string(b) == "anything" || std::string(a) == b;
    };
    // The host takes the caller for the first that it is compared with, and so the selector.
    EXPECT_EQ(Send("anything", "anything"), 0);
    EXPECT_NE(host.globals, nullptr);
}

TEST_F(Dispatch, CallersAreComparedInTheOrderOfTheTable)
{
    (void)Send("none of them", "x");
    std::vector<std::string> compared;
    for (const std::string& call : host.Calls("SPBasicSuite.IsEqual")) {
        for (const char* const caller : {"SP Interface", "AI Menu", "AI Notifier", "AI File Format",
                                         "AI Timer", "SP Access"}) {
            if (call.find("\"" + std::string(caller) + "\"") != std::string::npos) {
                compared.emplace_back(caller);
            }
        }
    }
    // The test that keeps the timer out of the trace may come at either end.
    const std::vector<std::string> order = {"SP Interface",   "AI Menu",  "AI Notifier",
                                            "AI File Format", "AI Timer", "SP Access"};
    std::size_t next = 0;
    for (const std::string& caller : compared) {
        if (next < order.size() && caller == order[next]) ++next;
    }
    EXPECT_EQ(next, order.size()) << ::testing::PrintToString(compared);
}

TEST_F(Dispatch, MessageWithoutBasicSuiteIsAnswered0AndLeavesTheFlagClear)
{
    message = host.InterfaceMessage();
    message.d.basic = nullptr;
    EXPECT_EQ(host.Send(Main, "SP Interface", "Startup", message), 0);
    EXPECT_TRUE(HasTrace("- no basic suite available in message"));
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
}

TEST_F(Dispatch, NullMessageIsTakenAsOneWithoutBasicSuite)
{
    std::string caller = "AI Notifier";
    std::string selector = "AI Notify";
    EXPECT_EQ(Main(caller.data(), selector.data(), nullptr), 0);
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
}

TEST_F(Dispatch, AcceptedMessageRewritesTheVariables)
{
    Start();
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_EQ(gMessage, &message);
    EXPECT_EQ(sSPBasic, host.Basic());
    EXPECT_EQ(gGlobals, host.globals);
    // A message whose globals word is null makes them null.
    message = host.InterfaceMessage();
    message.d.globals = nullptr;
    std::string text = "x";
    EXPECT_EQ(Main(text.data(), text.data(), &message), 0);
    EXPECT_EQ(gGlobals, nullptr);
}

TEST_F(Dispatch, EveryMessageAcquiresTheSuitesIfTheyAreNot)
{
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite"), 99U);
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite"), 99U);
}

TEST_F(Dispatch, MessageIsServedThoughASuiteCannotBeHad)
{
    host.RefuseSuite("AI User Suite", 1017, 4711);
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_TRUE(HasTrace("Error 0x00001267 acquiring suite 'AI User Suite', version 1017"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
    EXPECT_EQ(Send("AI Plugin", "x"), 0);
    EXPECT_EQ(CountTraces("Error 0x00001267 acquiring suite 'AI User Suite', version 1017"), 2U);
}

// The commands and updates of the menu: nothing that could be told apart from an unknown item.
TEST_F(Dispatch, MenuMessagesOfUnknownItemsAreServed)
{
    Start();
    AIMenuMessage menu = host.MenuMessage(nullptr);
    EXPECT_EQ(host.Send(Main, "AI Menu", "AI Update", menu), 0);
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
}

}  // namespace
