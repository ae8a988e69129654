#include "MessageFixture.h"

using ::testing::IsEmpty;

namespace {

struct Subscription {
    const char* name;
    const char* type;
    AINotifierHandle SGlobals::*field;
    const char* trace;
};

const Subscription kSubscriptions[] = {
    {"Change!", "AI Document Changed Notifier", &SGlobals::documentChangedNotifier,
     "...adding Change notifier"},
    {"Open!", "AI Document Opened Notifier", &SGlobals::documentOpenedNotifier,
     "...adding Open notifier"},
    {"AboutToClose!", "AI Document About To Close Notifier",
     &SGlobals::documentAboutToCloseNotifier, "...adding AboutToClose notifier"},
    {"Close!", "AI Document Closed Notifier", &SGlobals::documentClosedNotifier,
     "...adding Close notifier"},
    {"New!", "AI Document New Notifier", &SGlobals::documentNewNotifier,
     "...adding DocumentNew notifier"},
    {"Startup", "AI Application Started Notifier", &SGlobals::startupNotifier,
     "...adding Startup notifier"},
    {"Shutdown", "AI Application Shutdown Notifier", &SGlobals::shutdownNotifier,
     "...adding Shutdown notifier"},
    {"font-list change", "AI Font List Changed Notifier", &SGlobals::fontListChangedNotifier,
     "...adding font-list changed notifier"},
    {"Menu Changed", "AI Menu Changed Notifier", &SGlobals::menuChangedNotifier,
     "...adding Menu Changed notifier"},
    {"Save", "AI Command Notifier: After Save", &SGlobals::afterSaveNotifier,
     "...adding Save notifier"},
    {"Save As", "AI Command Notifier: After Save As", &SGlobals::afterSaveAsNotifier,
     "...adding Save As notifier"},
    {"DocumentWriteOnDiskComplete", "AI Document Write On Disk Complete Notifier",
     &SGlobals::diskWritingCompleteNotifier, "...adding DocumentWriteOnDiskComplete notifier"}};

class NotifierSubscription : public MessageFixture {
protected:
    static std::vector<std::string> AddingTraces()
    {
        std::vector<std::string> traces;
        for (const std::string& text : TraceTexts()) {
            if (text.compare(0, 10, "...adding ") == 0) traces.push_back(text);
        }
        return traces;
    }
};

TEST_F(NotifierSubscription, AddsTwelveInOrderWithTheirNamesAndFields)
{
    ASSERT_EQ(0, SendInterface("Startup"));
    ASSERT_EQ(12U, host.notifiers.size());
    for (std::size_t index = 0; index < 12; ++index) {
        const Subscription& expected = kSubscriptions[index];
        const ScriptedNotifier& added = host.notifiers[index];
        EXPECT_EQ(expected.name, added.name);
        EXPECT_EQ(expected.type, added.type);
        EXPECT_EQ(host.Head().self, added.self);
        EXPECT_EQ(gGlobals->*expected.field, added.handle) << expected.name;
    }
}

TEST_F(NotifierSubscription, TracesEachBeforeItIsAdded)
{
    ASSERT_EQ(0, SendInterface("Startup"));
    std::vector<std::string> expected;
    for (const Subscription& each : kSubscriptions) expected.emplace_back(each.trace);
    EXPECT_EQ(expected, AddingTraces());
    EXPECT_EQ(1U, CountTraces("...acquiring notifier suite"));
}

TEST_F(NotifierSubscription, AcquiresTheSuiteSeparatelyAndReleasesIt)
{
    ASSERT_EQ(0, SendInterface("Startup"));
    EXPECT_EQ(2U, host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Notifier Suite\", 1004)"));
    EXPECT_EQ(1, host.SuiteReferences("AI Notifier Suite", 1004));
}

class NotifierRow : public NotifierSubscription, public ::testing::WithParamInterface<int> {};

// The subscription of this row fails.
TEST_P(NotifierRow, FailureKeepsTheRowsBeforeItAndStartupContinues)
{
    host.FailCall("AINotifierSuite.AddNotifier", GetParam() + 1, 4711);
    EXPECT_EQ(0, SendInterface("Startup"));
    EXPECT_TRUE(HasTrace("...exception caught while adding notifiers"));
    EXPECT_EQ(static_cast<std::size_t>(GetParam()), host.notifiers.size());
    EXPECT_EQ(kSubscriptions[GetParam()].trace, AddingTraces().back());
    EXPECT_EQ(1, host.SuiteReferences("AI Notifier Suite", 1004));
    EXPECT_EQ(1U, host.fileFormats.size());
    for (int index = 0; index < 12; ++index) {
        EXPECT_EQ(index < GetParam(), gGlobals->*kSubscriptions[index].field != nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(All, NotifierRow, ::testing::Range(0, 12));

TEST_F(NotifierSubscription, ReturnsTheHostsCode)
{
    Start();
    host.FailCall("AINotifierSuite.AddNotifier", 1, 4711);
    SPInterfaceMessage message = host.InterfaceMessage();
    EXPECT_EQ(4711, AddNotifiers(&message));
    host.RefuseSuite("AI Notifier Suite", 1004, 4712);
    EXPECT_EQ(4712, AddNotifiers(&message));
    EXPECT_EQ(2U, CountTraces("...exception caught while adding notifiers"));
}

TEST_F(NotifierSubscription, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, AddNotifiers(nullptr));
    EXPECT_THAT(host.Calls(), IsEmpty());
}

}  // namespace
