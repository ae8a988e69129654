#include "SuppressionFixture.h"

namespace {

const char* const kOff =
    "GetSuppressionOfMissingFontsDialog() returning 0 because "
    "sTimeToStopSuppressingMissingFontDialogs is 0.";

std::string Expired(int seconds)
{
    return "GetSuppressionOfMissingFontsDialog() returning false because suppression expired " +
           std::to_string(seconds) + " seconds ago.";
}

TEST(SuppressionPeriod, IsOffAtLoad)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_EQ(1U, CountTraces(kOff));
    });
}

TEST(SuppressionPeriod, StartsWithTheCall)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 15 seconds from now)"));
        EXPECT_EQ(15, SecondsLeft());
        FakeClock::Advance(14);
        EXPECT_EQ(1, SecondsLeft());
    });
}

TEST(SuppressionPeriod, OfOneSecondEndsAtTheNextSecondOfTheClock)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetSuppressionOfMissingFontsDialog(1);
        EXPECT_TRUE(GetSuppressionOfMissingFontsDialog());
        FakeClock::Advance(1);
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_EQ(1U, CountTraces(Expired(0)));
    });
}

TEST(SuppressionPeriod, PrintsANegativeNumberAfterItsEnd)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetSuppressionOfMissingFontsDialog(5);
        FakeClock::Advance(8);
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(Expired(-3)));
    });
}

TEST(SuppressionPeriod, OfZeroSecondsIsExpiredAndNotOff)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetSuppressionOfMissingFontsDialog(0);
        EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 0 seconds from now)"));
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(Expired(0)));
        EXPECT_FALSE(HasTrace(kOff));
    });
}

TEST(SuppressionPeriod, IsReplacedByTheNextPeriod)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetSuppressionOfMissingFontsDialog(15);
        SetSuppressionOfMissingFontsDialog(5);
        EXPECT_EQ(5, SecondsLeft());
        FakeClock::Advance(2);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, WorksBeyond32Bits)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        FakeClock::Set(5000000000);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, NeverStartsWhileTheOverrideFileExists)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        SetPathToSuppressionOverrideFile(suppression.OverridePath().c_str());
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ((std::vector<std::string>{
                      "SetSuppressionOfMissingFontsDialog(until 15 seconds from now)",
                      "Overridden by '" + suppression.OverridePath() + "'"}),
                  TraceTexts());
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(kOff));
    });
}

TEST(SuppressionPeriod, EndsAtTheNextCallIfTheOverrideFileExists)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetPathToSuppressionOverrideFile(suppression.OverridePath().c_str());
        SetSuppressionOfMissingFontsDialog(15);
        suppression.WriteOverride("");
        EXPECT_EQ(15, SecondsLeft());
        SetSuppressionOfMissingFontsDialog(15);
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(kOff));
    });
}

TEST(SuppressionPeriod, StartsOnceTheOverrideFileIsDeleted)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Meine Schriften\n");
        SetupIllustratorDialogSuppression(true);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(0, SecondsLeft());
        std::filesystem::remove(suppression.OverridePath());
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
        FakeWindow window("Meine Schriften");
        HandleModalWindow(window);
        EXPECT_EQ(1U, window.events.size());
    });
}

TEST(SuppressionPeriod, IgnoresAnOverrideFileCreatedAfterStartup)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        SetupIllustratorDialogSuppression(true);
        suppression.WriteOverride("Fonts\n");
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, IgnoresAFolderWithTheNameOfTheOverrideFile)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        std::filesystem::create_directory(suppression.OverridePath());
        SetPathToSuppressionOverrideFile(suppression.OverridePath().c_str());
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

}  // namespace
