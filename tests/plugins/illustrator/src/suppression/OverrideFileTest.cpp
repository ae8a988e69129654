#include <sys/stat.h>
#include <unistd.h>

#include "SuppressionTest.h"

namespace {

// Looks for the file with both values that the caller may have put in.
void ExpectOverride(bool found, bool listedFromTrue, bool listedFromFalse)
{
    bool listed = true;
    EXPECT_EQ(found, DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(listedFromTrue, listed);
    listed = false;
    EXPECT_EQ(found, DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(listedFromFalse, listed);
}

void ExpectHints(const std::vector<std::string>& hints)
{
    bool listed = !hints.empty();
    ClearTraces();
    EXPECT_TRUE(DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(!hints.empty(), listed);
    EXPECT_EQ(HintTracesOf(hints), HintTraces());
}

TEST(OverrideFile, IsNotLookedForWithoutPluginCore)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("Fonts\n");
        suppression.core.Loader().missingFunctionCount = 1;
        ExpectOverride(false, true, false);
        EXPECT_TRUE(HintTraces().empty());
    });
}

TEST(OverrideFile, IsNotLookedForBesideAPathWithoutAFolder)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.core.Loader().frameworkPath = "PluginCore.framework";
        ExpectOverride(false, true, false);
    });
}

TEST(OverrideFile, ThatIsNotThereListsNothing)
{
    InFreshProcess([] {
        Suppression suppression;
        ExpectOverride(false, false, false);
    });
}

TEST(OverrideFile, IsNoFolder)
{
    InFreshProcess([] {
        Suppression suppression;
        std::filesystem::create_directory(suppression.OverridePath());
        ExpectOverride(false, false, false);
    });
}

TEST(OverrideFile, WithoutALineListsNothing)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("");
        ExpectOverride(true, false, false);
        EXPECT_TRUE(HintTraces().empty());
    });
}

TEST(OverrideFile, ThatCannotBeReadListsNothing)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("Fonts\n");
        ASSERT_EQ(0, chmod(suppression.scratch.Path().c_str(), 0755));
        ASSERT_EQ(0, chmod(suppression.OverridePath().c_str(), 0));
        const uid_t self = geteuid();
        // The superuser reads everything.
        if (self == 0) {
            ASSERT_EQ(0, seteuid(65534));
        }
        ExpectOverride(true, false, false);
        if (self == 0) {
            ASSERT_EQ(0, seteuid(0));
        }
    });
}

TEST(OverrideFile, HasOneHintPerLineWithTheEscapeKey)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("Fonts\nMeine Schriften\n");
        ExpectHints({"Fonts", "Meine Schriften"});
    });
}

TEST(OverrideFile, CountsALastLineWithoutALineFeed)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("Fonts\nlast");
        ExpectHints({"Fonts", "last"});
    });
}

TEST(OverrideFile, KeepsBlanksCommentsAndCarriageReturns)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("  Fonts \r\n# none\n\xEF\xBB\xBF\xC3\xA9\n");
        ExpectHints({"  Fonts \r", "# none", "\xEF\xBB\xBF\xC3\xA9"});
    });
}

TEST(OverrideFile, TakesAnEmptyLineForALine)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("\n");
        ExpectHints({""});
    });
}

TEST(OverrideFile, LiesBehindTheLastSlashOfPluginCoresPath)
{
    InFreshProcess([] {
        Suppression suppression;
        (void)suppression.scratch.Write("PluginFiles/DialogSuppression.tmp", "near\n");
        suppression.WriteOverride("far\n");
        suppression.core.Loader().frameworkPath =
            suppression.scratch.Path("PluginFiles/PluginCore.framework");
        ExpectHints({"near"});
    });
}

TEST(OverrideFile, LiesBehindTheLastBackslashOfPluginCoresPath)
{
    InFreshProcess([] {
        Suppression suppression;
        (void)suppression.scratch.Write("PluginFiles\\DialogSuppression.tmp", "near\n");
        suppression.WriteOverride("far\n");
        suppression.core.Loader().frameworkPath =
            suppression.scratch.Path("PluginFiles\\PluginCore.framework");
        ExpectHints({"near"});
    });
}

TEST(OverrideFile, IsRememberedOnceFound)
{
    InFreshProcess([] {
        Suppression suppression;
        suppression.WriteOverride("Fonts\n");
        bool listed = false;
        EXPECT_TRUE(DialogSuppressionOverrideFileExists(listed));
        ClearTraces();
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_TRUE(HasTrace("Overridden by '" + suppression.OverridePath() + "'"));
    });
}

}  // namespace
