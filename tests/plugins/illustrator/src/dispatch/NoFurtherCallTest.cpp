#include <algorithm>
#include <stdexcept>

#include "FreshProcess.h"
#include "ScriptedPlugPlugLibrary_Linux.h"
#include "UsageFixture.h"

namespace {

#define NAME(Name) #Name,
const char* const kFunctions[] = {PLUGIN_CORE_FUNCTIONS(NAME)};
#undef NAME

const char* const kNeverCalled[] = {"InvokeRestrictedFontsDialog", "SetPathForDocument",
                                    "ShowNotLoggedInMessageBox", "ShouldShowLogin"};

// One function of PluginCore throws. That ends the handler: no message calls another function of
// PluginCore after it.
class NoFurtherCall : public MessageFixture, public ::testing::WithParamInterface<const char*> {
protected:
    NoFurtherCall()
    {
        host.privateFrameworksPath = ScriptedPlugPlugFolder("owl-only");
        core->openAnswer = R"([{"PostScriptName":"A"}])";
        core->resolveAnswer = core->openAnswer;
        core->documentID = "id";
        core->menus = R"({"id":"1","title":"One","label":"One","child":[]})";
    }

    void Throw()
    {
        core->onCall[GetParam()] = [] { throw std::runtime_error("x"); };
    }
    // The last message's calls.
    void CheckCalls(const std::string& message)
    {
        const std::vector<std::string> names = core->CalledNames();
        const auto thrower = std::find(names.begin(), names.end(), GetParam());
        if (thrower != names.end()) {
            isCalled = true;
            EXPECT_EQ(names.end(), thrower + 1) << message << ", next: " << *(thrower + 1);
            EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin.")) << message;
        }
        Forget();
    }
    void Notify(const char* type)
    {
        (void)SendNotifier(type, host.DocumentHandle(host.currentDocument));
        CheckCalls(type);
    }
    void SendMenu(const char* selector)
    {
        AIMenuMessage message = host.MenuMessage(nullptr);
        (void)host.Send(Main, "AI Menu", selector, message);
        CheckCalls(selector);
    }
    void SendAllButStartup()
    {
        for (int tick = 0; tick < 2; ++tick) {
            AITimerMessage message = host.TimerMessage();
            (void)host.Send(Main, "AI Timer", "AI Go", message);
            CheckCalls("tick");
        }
        const std::string path = ScratchFile("a.ai", "%!PS-Adobe-3.0\n");
        ScriptedDocument& document = host.AddDocument(path);
        document.frames = {{{"A"}}};
        document.storyFonts = {"A"};
        (void)SendCheck(path);
        CheckCalls("check");
        Notify(kNew);
        Notify(kOpened);
        Notify(kChanged);
        Notify(kAfterSave);
        SendMenu("AI Update");
        SendMenu("AI Go");
        Notify(kAboutToClose);
        Notify(kClosed);
        (void)SendInterface("About");
        CheckCalls("About");
        (void)SendInterface("Shutdown");
        CheckCalls("Shutdown");
    }
    static bool IsNeverCalled()
    {
        return std::find(std::begin(kNeverCalled), std::end(kNeverCalled),
                         std::string(GetParam())) != std::end(kNeverCalled);
    }

    bool isCalled = false;
};

TEST_P(NoFurtherCall, AfterAnExceptionInAnyMessage)
{
    InFreshProcess([&] {
        Throw();
        EXPECT_EQ(0, SendInterface("Startup"));
        CheckCalls("Startup");
        if (host.globals == nullptr) {
            // The startup has ended at once, and the plug-in calls nothing from then on.
            core->onCall.clear();
            EXPECT_EQ(0, SendInterface("Other"));
            AITimerMessage message = host.TimerMessage();
            (void)host.Send(Main, "AI Timer", "AI Go", message);
            EXPECT_THAT(core->calls, ::testing::IsEmpty());
            ASSERT_EQ(0, SendInterface("Startup"));
            Forget();
            Throw();
        }
        SendAllButStartup();
        EXPECT_EQ(!IsNeverCalled(), isCalled);
    });
}

INSTANTIATE_TEST_SUITE_P(Functions, NoFurtherCall, ::testing::ValuesIn(kFunctions),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
