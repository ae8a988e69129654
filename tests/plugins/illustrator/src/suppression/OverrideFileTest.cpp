#include <sys/stat.h>

#include "SuppressionFixture.h"
#include "WithoutRootRights.h"

namespace {

// Calls the function with both initial values of the output.
void ExpectOverride(bool found, bool listedFromTrue, bool listedFromFalse)
{
    bool listed = true;
    EXPECT_EQ(found, DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(listedFromTrue, listed);
    listed = false;
    EXPECT_EQ(found, DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(listedFromFalse, listed);
}

// Expects that the file exists and that exactly these hints are added.
void ExpectHints(const std::vector<std::string>& hints)
{
    bool listed = !hints.empty();
    ClearTraces();
    EXPECT_TRUE(DialogSuppressionOverrideFileExists(listed));
    EXPECT_EQ(!hints.empty(), listed);
    EXPECT_EQ(HintTracesOf(hints), HintTraces());
}

TEST(OverrideFile, IsNotSearchedWithoutPluginCore)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        suppression.core.Loader().missingFunctionCount = 1;
        ExpectOverride(false, true, false);
        EXPECT_TRUE(HintTraces().empty());
    });
}

TEST(OverrideFile, IsNotSearchedIfPluginCoresPathHasNoFolder)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.core.Loader().frameworkPath = "PluginCore.framework";
        ExpectOverride(false, true, false);
    });
}

TEST(OverrideFile, ListsNothingIfItIsMissing)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        ExpectOverride(false, false, false);
    });
}

TEST(OverrideFile, IsNotAFolder)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        std::filesystem::create_directory(suppression.OverridePath());
        ExpectOverride(false, false, false);
    });
}

TEST(OverrideFile, ListsNothingIfItIsEmpty)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("");
        ExpectOverride(true, false, false);
        EXPECT_TRUE(HintTraces().empty());
    });
}

TEST(OverrideFile, ListsNothingIfItIsUnreadable)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        ASSERT_EQ(0, chmod(suppression.OverridePath().c_str(), 0));
        const WithoutRootRights nobody(suppression.scratch.Path());
        ExpectOverride(true, false, false);
    });
}

TEST(OverrideFile, HasOneHintPerLineWithTheEscapeKey)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\nMeine Schriften\n");
        ExpectHints({"Fonts", "Meine Schriften"});
    });
}

TEST(OverrideFile, ReadsALastLineWithoutALineFeed)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\nlast");
        ExpectHints({"Fonts", "last"});
    });
}

TEST(OverrideFile, KeepsSpacesCommentsAndCarriageReturns)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("  Fonts \r\n# none\n\xEF\xBB\xBF\xC3\xA9\n");
        ExpectHints({"  Fonts \r", "# none", "\xEF\xBB\xBF\xC3\xA9"});
    });
}

TEST(OverrideFile, ReadsAnEmptyLineAsAnEmptyHint)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("\n");
        ExpectHints({""});
    });
}

TEST(OverrideFile, IsInTheFolderBeforeTheLastSlashOfPluginCoresPath)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        (void)suppression.scratch.Write("PluginFiles/DialogSuppression.tmp", "near\n");
        suppression.WriteOverride("far\n");
        suppression.core.Loader().frameworkPath =
            suppression.scratch.Path("PluginFiles/PluginCore.framework");
        ExpectHints({"near"});
    });
}

TEST(OverrideFile, IsInTheFolderBeforeTheLastBackslashOfPluginCoresPath)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        (void)suppression.scratch.Write("PluginFiles\\DialogSuppression.tmp", "near\n");
        suppression.WriteOverride("far\n");
        suppression.core.Loader().frameworkPath =
            suppression.scratch.Path("PluginFiles\\PluginCore.framework");
        ExpectHints({"near"});
    });
}

TEST(OverrideFile, IsRememberedWhenFound)
{
    InFreshProcess([] {
        SuppressionFixture suppression;
        suppression.WriteOverride("Fonts\n");
        bool listed = false;
        EXPECT_TRUE(DialogSuppressionOverrideFileExists(listed));
        ClearTraces();
        SetSuppressionOfMissingFontsDialog(15);
        EXPECT_TRUE(HasTrace("Overridden by '" + suppression.OverridePath() + "'"));
    });
}

}  // namespace
