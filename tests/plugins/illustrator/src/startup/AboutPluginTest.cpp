#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class About : public MessageTest {};

TEST_F(About, ShowsTheDialogOfTheCurrentDocument)
{
    Start();
    host.AddDocument("/folder/a.ai");
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(core->calls,
                ElementsAre("InvokeCommandDialog(\"/folder/a.ai\", zeroed 256, false)"));
}

TEST_F(About, PathIsEmptyWithoutADocument)
{
    Start();
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(core->calls, ElementsAre("InvokeCommandDialog(\"\", zeroed 256, false)"));
}

TEST_F(About, ResultIsPluginCoresStatus)
{
    Start();
    core->statuses["InvokeCommandDialog"] = 0x10000000;
    EXPECT_EQ(SendInterface("About"), 0x10000000);
}

// Nothing says that the plug-in has started.
TEST_F(About, ReachesPluginCoreBeforeStartup)
{
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("InvokeCommandDialog"));
}

TEST_F(About, MissingFunctionIsNotCalled)
{
    core.Loader().pfInvokeCommandDialog = nullptr;
    EXPECT_EQ(SendInterface("About"), 0);
    EXPECT_THAT(core->calls, IsEmpty());
}

}  // namespace
