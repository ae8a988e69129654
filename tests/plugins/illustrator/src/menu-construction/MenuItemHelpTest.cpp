#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

static_assert(sizeof(MenuItemHelp) == sizeof(void*), "one member, the suite's pointer");

class MenuSuiteHolder : public RunningMenuTest {};

TEST_F(MenuSuiteHolder, AcquiresTheSuiteAndGivesItBack)
{
    {
        const MenuItemHelp help;
        EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 1);
    }
    EXPECT_THAT(host.Calls(), ElementsAre("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)",
                                          "SPBasicSuite.ReleaseSuite(\"AI Menu Suite\", 1011)"));
    EXPECT_EQ(host.SuiteReferences("AI Menu Suite", 1011), 0);
}

TEST_F(MenuSuiteHolder, ThrowsTheCodeOfARefusedSuite)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_THROW(const MenuItemHelp help, int);
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_EQ(host.CountCalls("SPBasicSuite.ReleaseSuite"), 0U);
}

TEST_F(MenuSuiteHolder, RefusedReleaseIsIgnored)
{
    host.FailCall("SPBasicSuite.ReleaseSuite", 1, kHostError);
    EXPECT_NO_THROW(const MenuItemHelp help);
    EXPECT_FALSE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(MenuSuiteHolder, ExceptionOutOfTheReleaseEndsTheProcess)
{
    EXPECT_DEATH(
        {
            host.OnCall("SPBasicSuite.ReleaseSuite", [] { throw std::runtime_error("release"); });
            try {
                const MenuItemHelp help;
            } catch (const std::runtime_error&) {
                exit(0);
            }
        },
        "release");
}

}  // namespace
