#include <stdexcept>

#include "MenuFixture.h"

using ::testing::ElementsAre;

namespace {

static_assert(sizeof(MenuItemHelp) == sizeof(void*), "the suite's pointer is the only member");

class MenuSuiteHolder : public RunningMenuFixture {};

TEST_F(MenuSuiteHolder, AcquiresAndReleasesTheSuite)
{
    {
        const MenuItemHelp help;
        EXPECT_EQ(1, host.SuiteReferences("AI Menu Suite", 1011));
    }
    EXPECT_THAT(host.Calls(), ElementsAre("SPBasicSuite.AcquireSuite(\"AI Menu Suite\", 1011)",
                                          "SPBasicSuite.ReleaseSuite(\"AI Menu Suite\", 1011)"));
    EXPECT_EQ(0, host.SuiteReferences("AI Menu Suite", 1011));
}

TEST_F(MenuSuiteHolder, ThrowsTheCodeOfARefusedSuite)
{
    host.RefuseSuite("AI Menu Suite", 1011, kHostError);
    EXPECT_THROW(const MenuItemHelp help, int);
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_EQ(0U, host.CountCalls("SPBasicSuite.ReleaseSuite"));
}

TEST_F(MenuSuiteHolder, IgnoresARefusedRelease)
{
    host.FailCall("SPBasicSuite.ReleaseSuite", 1, kHostError);
    EXPECT_NO_THROW(const MenuItemHelp help);
    EXPECT_FALSE(HasTrace("ERROR:  throwing 4711."));
}

TEST_F(MenuSuiteHolder, ExceptionOfTheReleaseEndsTheProcess)
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
