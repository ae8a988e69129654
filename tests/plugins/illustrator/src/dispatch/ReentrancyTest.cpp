#include <stdexcept>

#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Reentrancy : public MessageFixture {};

TEST_F(Reentrancy, RefusesAMessageDuringADialogAndHandlesTheNext)
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
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(nested, ElementsAre(1, 1));
    EXPECT_THAT(traced, ElementsAre(0U, 0U));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument",
                                                 "InvokeResolveDialog", "ActivateChosenFonts"));
    core->calls.clear();
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
}

TEST_F(Reentrancy, RefusedMessageChangesNothing)
{
    Start();
    SGlobals* const globals = gGlobals;
    core->onCall["PluginIsEnabled"] = [&] {
        SPInterfaceMessage message = host.InterfaceMessage();
        message.d.globals = nullptr;
        std::string text = "SP Interface";
        EXPECT_EQ(1, Main(text.data(), text.data(), &message));
        EXPECT_EQ(globals, gGlobals);
        EXPECT_NE(&message, gMessage);
    };
    EXPECT_EQ(0, SendNotifier(kNew));
}

TEST_F(Reentrancy, CatchesAnExceptionOfTheCheckAndHandlesTheNextMessage)
{
    Start();
    core->openAnswer = "no JSON";
    EXPECT_EQ(0, SendCheck("/a.ai"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    core->openAnswer = "";
    EXPECT_EQ(-1, SendCheck("/a.ai"));
}

TEST_F(Reentrancy, UnreadablePathEndsAtTheBarrier)
{
    Start();
    host.FailCall("AIFilePathSuite.GetFullPath", 1, 4711);
    EXPECT_EQ(0, SendCheck("/a.ai"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(Reentrancy, CatchesExceptionsOfAnyType)
{
    Start();
    core->onCall["PluginIsEnabled"] = [] { throw 4711; };
    EXPECT_EQ(0, SendNotifier(kNew));
    core->onCall["PluginIsEnabled"] = [] { throw std::runtime_error("x"); };
    EXPECT_EQ(0, SendNotifier(kNew));
    core->onCall["PluginIsEnabled"] = [] { throw "a text"; };
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_EQ(3U, CountTraces("Unhandled exception in Typeloft plugin."));
    core->onCall.clear();
    Forget();
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleCreateNewDocument"));
}

}  // namespace
