#include "DocumentHandlers.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DocumentNew : public MessageFixture {
protected:
    DocumentNew() { Start(); }
    static bool BroughtTheAppForward()
    {
        return HasTraceBeginningWith("Entering BackgroundForegroundApp") ||
               HasTraceBeginningWith("Entering CrossPluginUtils::BackgroundForegroundApp");
    }
};

TEST_F(DocumentNew, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentNewNotifier(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(DocumentNew, CallsPluginCoreWithAZeroedBuffer)
{
    core->documentID = "an id";
    core->statuses["HandleCreateNewDocument"] = 9;
    EXPECT_EQ(0, SendNotifier(kNew, host.DocumentHandle(0)));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)",
                                         "HandleCreateNewDocument(zeroed 256, 256)"));
    EXPECT_TRUE(BroughtTheAppForward());
}

TEST_F(DocumentNew, OnlyBringsTheAppForwardIfDisabled)
{
    core->enabled = false;
    EXPECT_EQ(0, SendNotifier(kNew, host.DocumentHandle(0)));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_TRUE(BroughtTheAppForward());
}

TEST_F(DocumentNew, CreatesNoRecord)
{
    EXPECT_EQ(0, SendNotifier(kNew, host.DocumentHandle(0)));
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
    EXPECT_FALSE(HasTraceBeginningWith("Entering GetFilePathForDocumentHandle"));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
}

}  // namespace
