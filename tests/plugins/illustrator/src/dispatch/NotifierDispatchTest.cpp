#include "MessageFixture.h"

using ::testing::Contains;
using ::testing::IsEmpty;

namespace {

class NotifierDispatch : public MessageTest {
protected:
    static std::string Unhandled(const std::string& type)
    {
        return "UNHANDLED NOTIFIER MESSAGE TYPE:  " + type;
    }
};

TEST_F(NotifierDispatch, NullMessageIsAParameterErrorWithoutTrace)
{
    Start();
    EXPECT_EQ(GoNotifier(nullptr), kParameterError);
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(NotifierDispatch, MissingGlobalsAreAParameterErrorWithoutTrace)
{
    gGlobals = nullptr;
    AINotifierMessage message = host.NotifierMessage(kOpened);
    EXPECT_EQ(GoNotifier(&message), kParameterError);
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(NotifierDispatch, HostIsToldOfTheMissingGlobals)
{
    EXPECT_EQ(SendNotifier(kOpened), kParameterError);
}

TEST_F(NotifierDispatch, EntryAndExitAreTraced)
{
    Start();
    const void* const handle = host.NotifierHandle("AI Application Started Notifier");
    EXPECT_EQ(SendNotifier("AI Application Started Notifier"), 0);
    EXPECT_TRUE(HasTrace("Entering GoNotifier(message->notifier = " + Low32(handle) + ")"));
    EXPECT_TRUE(HasTrace("GoNotifier returning 0"));
}

TEST_F(NotifierDispatch, ApplicationStartedDoesNothing)
{
    Start();
    EXPECT_EQ(SendNotifier("AI Application Started Notifier"), 0);
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandleStartupNotifier"));
}

TEST_F(NotifierDispatch, ApplicationShutdownStopsThePluginAndIsAnswered0)
{
    Start();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(SendNotifier("AI Application Shutdown Notifier"), 0);
    EXPECT_EQ(host.globals, nullptr);
    EXPECT_EQ(gGlobals, nullptr);
    EXPECT_THAT(core->CalledNames(), Contains("TerminatePluginCoreInterface"));
}

TEST_F(NotifierDispatch, OpenedAndNewReachTheirHandlers)
{
    Start();
    host.AddDocument("/a.ai");
    EXPECT_EQ(SendNotifier(kOpened, host.DocumentHandle(0)), 0);
    EXPECT_THAT(core->CalledNames(), Contains("HandleOpenExistingDocument"));
    EXPECT_EQ(SendNotifier(kNew), 0);
    EXPECT_THAT(core->CalledNames(), Contains("HandleCreateNewDocument"));
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
}

TEST_F(NotifierDispatch, MenuChangedIsSubscribedAndUnhandled)
{
    Start();
    ASSERT_NE(host.NotifierHandle("AI Menu Changed Notifier"), nullptr);
    EXPECT_EQ(SendNotifier("AI Menu Changed Notifier"), 0);
    EXPECT_TRUE(HasTrace(Unhandled("AI Menu Changed Notifier")));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, UnknownHandleIsUnhandledWhateverItsTypeSays)
{
    Start();
    AINotifierMessage message = host.NotifierMessage(kOpened);
    message.notifier = reinterpret_cast<AINotifierHandle>(0x77770);
    EXPECT_EQ(host.Send(Main, "AI Notifier", "AI Notify", message), 0);
    EXPECT_TRUE(HasTrace(Unhandled(kOpened)));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, HandleDecidesAndNotTheType)
{
    Start();
    AINotifierMessage message = host.NotifierMessage(kNew);
    message.type = nullptr;
    EXPECT_EQ(host.Send(Main, "AI Notifier", "AI Notify", message), 0);
    EXPECT_THAT(core->CalledNames(), Contains("HandleCreateNewDocument"));
}

// The rows in the order in which they are tested.
struct DispatchedNotifier {
    const char* field;
    const char* type;
    AINotifierHandle SGlobals::*notifier;
    const char* handler;
};

constexpr char kSavedHandler[] = "HandleDocumentSavedNotifier";

const DispatchedNotifier kNotifierRows[] = {
    {"Startup", "AI Application Started Notifier", &SGlobals::startupNotifier,
     "HandleStartupNotifier"},
    {"Shutdown", "AI Application Shutdown Notifier", &SGlobals::shutdownNotifier,
     "HandleShutdownNotifier"},
    {"Opened", kOpened, &SGlobals::documentOpenedNotifier, "HandleDocumentOpenedNotifier"},
    {"AboutToClose", "AI Document About To Close Notifier", &SGlobals::documentAboutToCloseNotifier,
     "HandleDocumentAboutToCloseNotifier"},
    {"Closed", "AI Document Closed Notifier", &SGlobals::documentClosedNotifier,
     "HandleDocumentClosedNotifier"},
    {"New", kNew, &SGlobals::documentNewNotifier, "HandleDocumentNewNotifier"},
    {"Changed", "AI Document Changed Notifier", &SGlobals::documentChangedNotifier,
     "HandleDocumentChangedNotifier"},
    {"AfterSave", "AI Command Notifier: After Save", &SGlobals::afterSaveNotifier, kSavedHandler},
    {"AfterSaveAs", "AI Command Notifier: After Save As", &SGlobals::afterSaveAsNotifier,
     kSavedHandler},
    {"DiskWritingComplete", "AI Document Write On Disk Complete Notifier",
     &SGlobals::diskWritingCompleteNotifier, kSavedHandler},
    {"FontListChanged", "AI Font List Changed Notifier", &SGlobals::fontListChangedNotifier,
     "HandleFontListChangedNotifier"},
};

class EachNotifier : public NotifierDispatch,
                     public ::testing::WithParamInterface<DispatchedNotifier> {
protected:
    static bool WasEntered(const DispatchedNotifier& row)
    {
        return HasTraceBeginningWith(std::string("Entering ") + row.handler);
    }
};

TEST_P(EachNotifier, ReachesItsHandlerAndNoOther)
{
    Start();
    host.AddDocument("/a.ai");
    ASSERT_NE(host.NotifierHandle(GetParam().type), nullptr);
    EXPECT_EQ(gGlobals->*GetParam().notifier, host.NotifierHandle(GetParam().type));
    EXPECT_EQ(SendNotifier(GetParam().type, host.DocumentHandle(0)), 0);
    for (const DispatchedNotifier& row : kNotifierRows) {
        EXPECT_EQ(WasEntered(row), row.handler == std::string(GetParam().handler)) << row.handler;
    }
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
}

// Of equal handles the one tested first decides.
TEST_P(EachNotifier, IsTestedBeforeThoseBehindIt)
{
    Start();
    host.AddDocument("/a.ai");
    bool behind = false;
    for (const DispatchedNotifier& row : kNotifierRows) {
        if (behind) gGlobals->*row.notifier = gGlobals->*GetParam().notifier;
        if (row.notifier == GetParam().notifier) behind = true;
    }
    EXPECT_EQ(SendNotifier(GetParam().type, host.DocumentHandle(0)), 0);
    for (const DispatchedNotifier& row : kNotifierRows) {
        EXPECT_EQ(WasEntered(row), row.handler == std::string(GetParam().handler)) << row.handler;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EachNotifier, ::testing::ValuesIn(kNotifierRows),
                         [](const auto& row) { return std::string(row.param.field); });

TEST_F(NotifierDispatch, StartupIsTestedBeforeAllOthers)
{
    Start();
    gGlobals->startupNotifier = gGlobals->shutdownNotifier;
    EXPECT_EQ(SendNotifier("AI Application Shutdown Notifier"), 0);
    EXPECT_NE(host.globals, nullptr);
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, NullMessagesOfTheHandlersAreParameterErrors)
{
    EXPECT_EQ(HandleStartupNotifier(nullptr), kParameterError);
    EXPECT_EQ(HandleShutdownNotifier(nullptr), kParameterError);
}

}  // namespace
