#include "DocumentHandlers.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DocumentNew : public MessageTest {
protected:
    DocumentNew() { Start(); }
    static bool WentToTheBackground()
    {
        return HasTraceBeginningWith("Entering BackgroundForegroundApp") ||
               HasTraceBeginningWith("Entering CrossPluginUtils::BackgroundForegroundApp");
    }
};

TEST_F(DocumentNew, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleDocumentNewNotifier(nullptr), kParameterError);
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(DocumentNew, TellsPluginCoreWithAZeroedBuffer)
{
    core->documentID = "an id";
    core->statuses["HandleCreateNewDocument"] = 9;
    EXPECT_EQ(SendNotifier(kNew, host.DocumentHandle(0)), 0);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)",
                                         "HandleCreateNewDocument(zeroed 256, 256)"));
    EXPECT_TRUE(WentToTheBackground());
}

TEST_F(DocumentNew, DisabledOnlyBringsTheAppForward)
{
    core->enabled = false;
    EXPECT_EQ(SendNotifier(kNew, host.DocumentHandle(0)), 0);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_TRUE(WentToTheBackground());
}

TEST_F(DocumentNew, TouchesNoRecord)
{
    EXPECT_EQ(SendNotifier(kNew, host.DocumentHandle(0)), 0);
    EXPECT_FALSE(HasTraceBeginningWith("Entering SetFilePathForDocumentHandle"));
    EXPECT_FALSE(HasTraceBeginningWith("Entering GetFilePathForDocumentHandle"));
    EXPECT_THAT(host.Calls("AIDocumentSuite"), IsEmpty());
}

}  // namespace
