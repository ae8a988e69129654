#include <stdexcept>

#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Reentrancy : public MessageTest {};

TEST_F(Reentrancy, MessageDuringADialogIsRefusedAndTheNextIsServed)
{
    Start();
    core->openAnswer = R"([{"PostScriptName":"A"}])";
    std::vector<AIErr> nested;
    std::vector<std::size_t> traced;
    core->onCall["InvokeResolveDialog"] = [&] {
        const std::size_t before = Traces().size();
        const std::size_t calls = host.Calls().size();
        nested.push_back(SendNotifier(kNew));
        nested.push_back(SendCheck("/other.ai"));
        traced.push_back(Traces().size() - before);
        traced.push_back(host.Calls().size() - calls);
    };
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(nested, ElementsAre(1, 1));
    EXPECT_THAT(traced, ElementsAre(0U, 0U));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument",
                                                 "InvokeResolveDialog", "ActivateChosenFonts"));
    core->calls.clear();
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
}

TEST_F(Reentrancy, RefusedMessageTouchesNothing)
{
    Start();
    SGlobals* const globals = gGlobals;
    core->onCall["PluginIsEnabled"] = [&] {
        SPInterfaceMessage message = host.InterfaceMessage();
        message.d.globals = nullptr;
        std::string text = "SP Interface";
        EXPECT_EQ(Main(text.data(), text.data(), &message), 1);
        EXPECT_EQ(gGlobals, globals);
        EXPECT_NE(gMessage, &message);
    };
    EXPECT_EQ(SendNotifier(kNew), 0);
}

TEST_F(Reentrancy, ExceptionOfTheCheckIsSwallowedAndTheNextMessageServed)
{
    Start();
    core->openAnswer = "no JSON";
    EXPECT_EQ(SendCheck("/a.ai"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    core->openAnswer = "";
    EXPECT_EQ(SendCheck("/a.ai"), -1);
}

TEST_F(Reentrancy, HostPathThatCannotBeReadEndsAtTheBarrier)
{
    Start();
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    EXPECT_EQ(SendCheck("/a.ai"), 0);
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Reentrancy, ExceptionsOfAnyKindAreSwallowed)
{
    Start();
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(SendNotifier(kNew), 0);
    core->onCall["PluginIsEnabled"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(SendNotifier(kNew), 0);
    core->onCall["PluginIsEnabled"] = [] { throw "a text"; };
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_EQ(CountTraces("Unhandled exception in Typeloft plugin."), 3U);
    core->onCall.clear();
    Forget();
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
}

}  // namespace
