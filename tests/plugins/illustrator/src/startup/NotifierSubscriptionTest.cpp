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

class NotifierSubscription : public MessageTest {
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

TEST_F(NotifierSubscription, TwelveAreAddedInOrderWithTheirNamesAndFields)
{
    ASSERT_EQ(SendInterface("Startup"), 0);
    ASSERT_EQ(host.notifiers.size(), 12U);
    for (std::size_t index = 0; index < 12; ++index) {
        const Subscription& expected = kSubscriptions[index];
        const ScriptedNotifier& added = host.notifiers[index];
        EXPECT_EQ(added.name, expected.name);
        EXPECT_EQ(added.type, expected.type);
        EXPECT_EQ(added.self, host.Head().self);
        EXPECT_EQ(added.handle, gGlobals->*expected.field) << expected.name;
    }
}

TEST_F(NotifierSubscription, EachIsTracedBeforeItIsAdded)
{
    ASSERT_EQ(SendInterface("Startup"), 0);
    std::vector<std::string> expected;
    for (const Subscription& each : kSubscriptions) expected.emplace_back(each.trace);
    EXPECT_EQ(AddingTraces(), expected);
    EXPECT_EQ(CountTraces("...acquiring notifier suite"), 1U);
}

TEST_F(NotifierSubscription, SuiteIsAcquiredOnItsOwnAndGivenBack)
{
    ASSERT_EQ(SendInterface("Startup"), 0);
    EXPECT_EQ(host.CountCalls("SPBasicSuite.AcquireSuite(\"AI Notifier Suite\", 1004)"), 2U);
    EXPECT_EQ(host.SuiteReferences("AI Notifier Suite", 1004), 1);
}

class NotifierRow : public NotifierSubscription, public ::testing::WithParamInterface<int> {};

// The n-th subscription fails: those before it stay, startup carries on.
TEST_P(NotifierRow, FailureKeepsThoseBeforeItAndStartupCarriesOn)
{
    host.FailCall("AINotifierSuite.AddNotifier", GetParam() + 1, 4711);
    EXPECT_EQ(SendInterface("Startup"), 0);
    EXPECT_TRUE(HasTrace("...exception caught while adding notifiers"));
    EXPECT_EQ(host.notifiers.size(), static_cast<std::size_t>(GetParam()));
    EXPECT_EQ(AddingTraces().back(), kSubscriptions[GetParam()].trace);
    EXPECT_EQ(host.SuiteReferences("AI Notifier Suite", 1004), 1);
    EXPECT_EQ(host.fileFormats.size(), 1U);
    for (int index = 0; index < 12; ++index) {
        EXPECT_EQ(gGlobals->*kSubscriptions[index].field != nullptr, index < GetParam());
    }
}

INSTANTIATE_TEST_SUITE_P(All, NotifierRow, ::testing::Range(0, 12));

TEST_F(NotifierSubscription, ResultIsTheHostsCode)
{
    Start();
    host.FailCall("AINotifierSuite.AddNotifier", 1, 4711);
    SPInterfaceMessage message = host.InterfaceMessage();
    EXPECT_EQ(AddNotifiers(&message), 4711);
    host.RefuseSuite("AI Notifier Suite", 1004, 4712);
    EXPECT_EQ(AddNotifiers(&message), 4712);
    EXPECT_EQ(CountTraces("...exception caught while adding notifiers"), 2U);
}

TEST_F(NotifierSubscription, NullMessageIsAParameterError)
{
    EXPECT_EQ(AddNotifiers(nullptr), kParameterError);
    EXPECT_THAT(host.Calls(), IsEmpty());
}

}  // namespace
