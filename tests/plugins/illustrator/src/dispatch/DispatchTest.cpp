#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Sends messages that consist of the common header alone.
class Dispatch : public MessageFixture {
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

TEST_F(Dispatch, TracesAnUnknownInterfaceSelectorAndReturns0)
{
    EXPECT_EQ(0, Send("SP Interface", "Reload"));
    EXPECT_TRUE(HasTrace("- unknown message from kSPInterfaceCaller"));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, UnknownCallerDoesNothing)
{
    EXPECT_EQ(0, Send("AI Plugin", "AI Go"));
    EXPECT_TRUE(HasTrace(Arguments("AI Plugin", "AI Go") + " doing nothing."));
}

TEST_F(Dispatch, TracesEntryAndExit)
{
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_TRUE(HasTrace("Entering " + Arguments("AI Plugin", "x")));
    EXPECT_TRUE(HasTrace(Arguments("AI Plugin", "x") + " returning 0"));
    EXPECT_EQ(-1, Traces().back().indentChange);
}

TEST_F(Dispatch, ExitTracePrintsTheResultOfTheFormatCheck)
{
    ScriptedFileFormatMessage check = host.FileFormatMessage("");
    EXPECT_EQ(-1, host.Send(Main, "AI File Format", "AI Check", check.record));
    EXPECT_TRUE(
        HasTrace("HandlePluginCaller(caller='AI File Format', selector='AI Check', message=" +
                 Low32(&check.record) + ") returning -1"));
}

TEST_F(Dispatch, TracesTheMenuCaller)
{
    EXPECT_EQ(0, Send("AI Menu", "AI Open"));
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
    EXPECT_TRUE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(Dispatch, TracesUnknownSelectors)
{
    for (const char* const caller : {"AI Notifier", "AI File Format"}) {
        ClearTraces();
        EXPECT_EQ(0, Send(caller, "AI Other")) << caller;
        EXPECT_EQ(1U, CountTraces("...UNHANDLED SELECTOR")) << caller;
        EXPECT_EQ(0U, CountTraces("- caller is kCallerAIMenu")) << caller;
    }
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, TimerWithAnotherSelectorLeavesNoTrace)
{
    EXPECT_EQ(0, Send("AI Timer", "AI Stop"));
    EXPECT_THAT(TraceTexts(), IsEmpty());
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Dispatch, TimerTickReturns0WithoutAnEntryTrace)
{
    Start();
    EXPECT_EQ(0, Send("AI Timer", "AI Go"));
    EXPECT_FALSE(HasTraceBeginningWith("Entering HandlePluginCaller"));
    EXPECT_FALSE(HasTraceBeginningWith("HandlePluginCaller"));
    EXPECT_THAT(core->calls, ElementsAre("IdleEvent()", "ProcessPanelMessages(1)"));
}

TEST_F(Dispatch, RefusesToUnloadFromStartupToShutdown)
{
    EXPECT_EQ(0, Send("SP Access", "Unload"));
    ASSERT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(1, Send("SP Access", "Unload"));
    EXPECT_EQ(0, SendInterface("Shutdown"));
    EXPECT_EQ(0, Send("SP Access", "Unload"));
}

TEST_F(Dispatch, OtherAccessSelectorsReturn0)
{
    Start();
    EXPECT_EQ(0, Send("SP Access", "Reload"));
    EXPECT_FALSE(HasTrace("...UNHANDLED SELECTOR"));
}

TEST_F(Dispatch, FileCheckAlwaysReturnsMinusOne)
{
    Start();
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ(-1, SendCheck(""));
    core->enabled = false;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
}

TEST_F(Dispatch, LeavesAllStringComparisonsToTheHost)
{
    host.isEqual = [](const char* a, const char* b) {
        return std::string(a) == "anything" || std::string(b) == "anything" || std::string(a) == b;
    };
    // For this host the caller and the selector equal any name that they are compared with.
    EXPECT_EQ(0, Send("anything", "anything"));
    EXPECT_NE(nullptr, host.globals);
}

TEST_F(Dispatch, ComparesCallersInOrder)
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
    // The comparison that keeps the timer out of the trace may come first or last.
    const std::vector<std::string> order = {"SP Interface",   "AI Menu",  "AI Notifier",
                                            "AI File Format", "AI Timer", "SP Access"};
    std::size_t next = 0;
    for (const std::string& caller : compared) {
        if (next < order.size() && caller == order[next]) ++next;
    }
    EXPECT_EQ(order.size(), next) << ::testing::PrintToString(compared);
}

TEST_F(Dispatch, MessageWithoutBasicSuiteReturns0AndClearsTheFlag)
{
    message = host.InterfaceMessage();
    message.d.basic = nullptr;
    EXPECT_EQ(0, host.Send(Main, "SP Interface", "Startup", message));
    EXPECT_TRUE(HasTrace("- no basic suite available in message"));
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
}

TEST_F(Dispatch, TreatsANullMessageAsOneWithoutBasicSuite)
{
    std::string caller = "AI Notifier";
    std::string selector = "AI Notify";
    EXPECT_EQ(0, Main(caller.data(), selector.data(), nullptr));
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
}

TEST_F(Dispatch, EachMessageSetsTheGlobalVariables)
{
    Start();
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_EQ(&message, gMessage);
    EXPECT_EQ(host.Basic(), sSPBasic);
    EXPECT_EQ(host.globals, gGlobals);
    // gGlobals is null if the message's globals pointer is.
    message = host.InterfaceMessage();
    message.d.globals = nullptr;
    std::string text = "x";
    EXPECT_EQ(0, Main(text.data(), text.data(), &message));
    EXPECT_EQ(nullptr, gGlobals);
}

TEST_F(Dispatch, AcquiresTheSuitesOnce)
{
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_EQ(99U, host.CountCalls("SPBasicSuite.AcquireSuite"));
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_EQ(99U, host.CountCalls("SPBasicSuite.AcquireSuite"));
}

TEST_F(Dispatch, HandlesAMessageAlthoughASuiteIsRefused)
{
    host.RefuseSuite("AI User Suite", 1017, 4711);
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_TRUE(HasTrace("Error 0x00001267 acquiring suite 'AI User Suite', version 1017"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandlePluginCaller"));
    EXPECT_EQ(0, Send("AI Plugin", "x"));
    EXPECT_EQ(2U, CountTraces("Error 0x00001267 acquiring suite 'AI User Suite', version 1017"));
}

TEST_F(Dispatch, HandlesTheUpdateOfAnUnknownMenuItem)
{
    Start();
    AIMenuMessage menu = host.MenuMessage(nullptr);
    EXPECT_EQ(0, host.Send(Main, "AI Menu", "AI Update", menu));
    EXPECT_TRUE(HasTrace("- caller is kCallerAIMenu"));
}

}  // namespace
