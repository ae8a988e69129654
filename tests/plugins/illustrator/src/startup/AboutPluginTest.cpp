#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class About : public MessageFixture {};

TEST_F(About, PassesThePathOfTheCurrentDocument)
{
    Start();
    host.AddDocument("/folder/a.ai");
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(core->calls,
                ElementsAre("InvokeCommandDialog(\"/folder/a.ai\", zeroed 256, false)"));
}

TEST_F(About, PassesAnEmptyPathWithoutADocument)
{
    Start();
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(core->calls, ElementsAre("InvokeCommandDialog(\"\", zeroed 256, false)"));
}

TEST_F(About, ReturnsPluginCoresStatus)
{
    Start();
    core->statuses["InvokeCommandDialog"] = 0x10000000;
    EXPECT_EQ(0x10000000, SendInterface("About"));
}

// AboutPlugin doesn't check whether the plug-in has started.
TEST_F(About, CallsPluginCoreBeforeStartup)
{
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("InvokeCommandDialog"));
}

TEST_F(About, DoesNotCallAMissingFunction)
{
    core.Loader().pfInvokeCommandDialog = nullptr;
    EXPECT_EQ(0, SendInterface("About"));
    EXPECT_THAT(core->calls, IsEmpty());
}

}  // namespace
