#include "MessageFixture.h"

using ::testing::Contains;
using ::testing::IsEmpty;

namespace {

class NotifierDispatch : public MessageFixture {
protected:
    static std::string Unhandled(const std::string& type)
    {
        return "UNHANDLED NOTIFIER MESSAGE TYPE:  " + type;
    }
};

TEST_F(NotifierDispatch, RejectsANullMessageWithoutATrace)
{
    Start();
    EXPECT_EQ(kHostBadParameter, GoNotifier(nullptr));
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(NotifierDispatch, RejectsAMessageWithoutGlobalsAndWithoutATrace)
{
    gGlobals = nullptr;
    AINotifierMessage message = host.NotifierMessage(kOpened);
    EXPECT_EQ(kHostBadParameter, GoNotifier(&message));
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST_F(NotifierDispatch, ReturnsToTheHostThatGlobalsAreMissing)
{
    EXPECT_EQ(kHostBadParameter, SendNotifier(kOpened));
}

TEST_F(NotifierDispatch, TracesEntryAndExit)
{
    Start();
    const void* const handle = host.NotifierHandle("AI Application Started Notifier");
    EXPECT_EQ(0, SendNotifier("AI Application Started Notifier"));
    EXPECT_TRUE(HasTrace("Entering GoNotifier(message->notifier = " + Low32(handle) + ")"));
    EXPECT_TRUE(HasTrace("GoNotifier returning 0"));
}

TEST_F(NotifierDispatch, ApplicationStartedDoesNothing)
{
    Start();
    EXPECT_EQ(0, SendNotifier("AI Application Started Notifier"));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandleStartupNotifier"));
}

TEST_F(NotifierDispatch, ApplicationShutdownStopsThePluginAndReturns0)
{
    Start();
    core->statuses["TerminatePluginCoreInterface"] = 0x02000000;
    EXPECT_EQ(0, SendNotifier("AI Application Shutdown Notifier"));
    EXPECT_EQ(nullptr, host.globals);
    EXPECT_EQ(nullptr, gGlobals);
    EXPECT_THAT(core->CalledNames(), Contains("TerminatePluginCoreInterface"));
}

TEST_F(NotifierDispatch, CallsTheHandlersOfOpenedAndNew)
{
    Start();
    host.AddDocument("/a.ai");
    EXPECT_EQ(0, SendNotifier(kOpened, host.DocumentHandle(0)));
    EXPECT_THAT(core->CalledNames(), Contains("HandleOpenExistingDocument"));
    EXPECT_EQ(0, SendNotifier(kNew));
    EXPECT_THAT(core->CalledNames(), Contains("HandleCreateNewDocument"));
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
}

TEST_F(NotifierDispatch, DoesNotHandleTheSubscribedMenuChanged)
{
    Start();
    ASSERT_NE(nullptr, host.NotifierHandle("AI Menu Changed Notifier"));
    EXPECT_EQ(0, SendNotifier("AI Menu Changed Notifier"));
    EXPECT_TRUE(HasTrace(Unhandled("AI Menu Changed Notifier")));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, DoesNotHandleAnUnknownHandleOfAKnownType)
{
    Start();
    AINotifierMessage message = host.NotifierMessage(kOpened);
    message.notifier = reinterpret_cast<AINotifierHandle>(0x77770);
    EXPECT_EQ(0, host.Send(Main, "AI Notifier", "AI Notify", message));
    EXPECT_TRUE(HasTrace(Unhandled(kOpened)));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, DispatchesByTheHandleAndNotByTheType)
{
    Start();
    AINotifierMessage message = host.NotifierMessage(kNew);
    message.type = nullptr;
    EXPECT_EQ(0, host.Send(Main, "AI Notifier", "AI Notify", message));
    EXPECT_THAT(core->CalledNames(), Contains("HandleCreateNewDocument"));
}

// In the order in which GoNotifier compares the handles.
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

TEST_P(EachNotifier, CallsItsHandlerAndNoOtherHandler)
{
    Start();
    host.AddDocument("/a.ai");
    ASSERT_NE(nullptr, host.NotifierHandle(GetParam().type));
    EXPECT_EQ(host.NotifierHandle(GetParam().type), gGlobals->*GetParam().notifier);
    EXPECT_EQ(0, SendNotifier(GetParam().type, host.DocumentHandle(0)));
    for (const DispatchedNotifier& row : kNotifierRows) {
        EXPECT_EQ(row.handler == std::string(GetParam().handler), WasEntered(row)) << row.handler;
    }
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED"));
}

// If several handles are equal, the first one that is compared decides.
TEST_P(EachNotifier, IsComparedBeforeTheRowsThatFollow)
{
    Start();
    host.AddDocument("/a.ai");
    bool follows = false;
    for (const DispatchedNotifier& row : kNotifierRows) {
        if (follows) gGlobals->*row.notifier = gGlobals->*GetParam().notifier;
        if (row.notifier == GetParam().notifier) follows = true;
    }
    EXPECT_EQ(0, SendNotifier(GetParam().type, host.DocumentHandle(0)));
    for (const DispatchedNotifier& row : kNotifierRows) {
        EXPECT_EQ(row.handler == std::string(GetParam().handler), WasEntered(row)) << row.handler;
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, EachNotifier, ::testing::ValuesIn(kNotifierRows),
                         [](const auto& row) { return std::string(row.param.field); });

TEST_F(NotifierDispatch, ComparesTheStartupNotifierFirst)
{
    Start();
    gGlobals->startupNotifier = gGlobals->shutdownNotifier;
    EXPECT_EQ(0, SendNotifier("AI Application Shutdown Notifier"));
    EXPECT_NE(nullptr, host.globals);
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(NotifierDispatch, HandlersRejectANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleStartupNotifier(nullptr));
    EXPECT_EQ(kHostBadParameter, HandleShutdownNotifier(nullptr));
}

}  // namespace
