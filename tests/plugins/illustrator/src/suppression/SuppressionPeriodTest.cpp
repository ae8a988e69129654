#include "SuppressionTest.h"

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
        Suppression suppression;
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_EQ(1u, CountTraces(kOff));
    });
}

TEST(SuppressionPeriod, RunsFromTheCallOn)
{
    InFreshProcess([] {
        Suppression suppression;
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 15 seconds from now)"));
        EXPECT_EQ(15, SecondsLeft());
        FakeClock::Advance(14);
        EXPECT_EQ(1, SecondsLeft());
    });
}

TEST(SuppressionPeriod, OfOneSecondEndsWithTheNextClockSecond)
{
    InFreshProcess([] {
        Suppression suppression;
        SetSuppressionOfMissingFontsDialog(1);
        EXPECT_TRUE(GetSuppressionOfMissingFontsDialog());
        FakeClock::Advance(1);
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_EQ(1u, CountTraces(Expired(0)));
    });
}

TEST(SuppressionPeriod, TellsANegativeNumberAfterItsEnd)
{
    InFreshProcess([] {
        Suppression suppression;
        SetSuppressionOfMissingFontsDialog(5);
        FakeClock::Advance(8);
        ClearTraces();
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(Expired(-3)));
    });
}

TEST(SuppressionPeriod, OfNoSecondsReadsAsExpiredAndNotAsOff)
{
    InFreshProcess([] {
        Suppression suppression;
        SetSuppressionOfMissingFontsDialog(0);
        EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 0 seconds from now)"));
        EXPECT_FALSE(GetSuppressionOfMissingFontsDialog());
        EXPECT_TRUE(HasTrace(Expired(0)));
        EXPECT_FALSE(HasTrace(kOff));
    });
}

TEST(SuppressionPeriod, IsReplacedByTheNext)
{
    InFreshProcess([] {
        Suppression suppression;
        SetSuppressionOfMissingFontsDialog(15);
        SetSuppressionOfMissingFontsDialog(5);
        EXPECT_EQ(5, SecondsLeft());
        FakeClock::Advance(2);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, GoesBeyond32Bits)
{
    InFreshProcess([] {
        Suppression suppression;
        FakeClock::Set(5000000000);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, NeverStartsWhileTheOverrideFileExists)
{
    InFreshProcess([] {
        Suppression suppression;
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

TEST(SuppressionPeriod, IsEndedByTheOverrideFileAtTheNextCall)
{
    InFreshProcess([] {
        Suppression suppression;
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
        Suppression suppression;
        suppression.WriteOverride("Meine Schriften\n");
        SetupIllustratorDialogSuppression(true);
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(0, SecondsLeft());
        std::filesystem::remove(suppression.OverridePath());
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
        FakeWindow window("Meine Schriften");
        HandleModalWindow(window);
        EXPECT_EQ(1u, window.events.size());
    });
}

TEST(SuppressionPeriod, DoesNotMindAnOverrideFileMadeAfterTheStart)
{
    InFreshProcess([] {
        Suppression suppression;
        SetupIllustratorDialogSuppression(true);
        suppression.WriteOverride("Fonts\n");
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

TEST(SuppressionPeriod, DoesNotMindAFolderOfTheOverrideFilesName)
{
    InFreshProcess([] {
        Suppression suppression;
        std::filesystem::create_directory(suppression.OverridePath());
        SetPathToSuppressionOverrideFile(suppression.OverridePath().c_str());
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_EQ(15, SecondsLeft());
    });
}

}  // namespace
