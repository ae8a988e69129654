#include <chrono>

#include "RefusedCores.h"
#include "SessionNames.h"
#include "TwoPlugins.h"

namespace fs = std::filesystem;
using testing::HasSubstr;

class MachO : public TwoPlugins {};

TEST_F(MachO, OpensTheSamplesAsOnLinux)
{
    (void)onLinux.Sample("business-card.ai");
    (void)machO.Sample("business-card.ai");
    ExpectTheSame("open business-card.ai leaflet.eps letterhead.ait missing-font.pdf");
    if (IsSkipped()) return;
    EXPECT_EQ(1, machO.status);  // a font is missing
    EXPECT_THAT(machO.output, HasSubstr("    YuseiMagic-Regular  missing\n"));
    EXPECT_THAT(machO.output, HasSubstr("DejaVuSerif-Bold    activated now"));
}

// What `make run` opens and edits. The document and its fonts are another project's.
TEST_F(MachO, PlaysTheDemonstrationAsOnLinux)
{
    const fs::path fonts = DEMONSTRATION_FONTS;
    const fs::path document = fonts / "doc/fonts-yusei-magic/YuseiMagic-Characters-List.ai.gz";
    if (!fs::exists(document)) GTEST_SKIP() << document << ": not run: make run fetches it";
    for (const PluginPlace* place : {&onLinux, &machO}) {
        const std::string unpack = "gzip --decompress --stdout '" + document.string() + "' >'" +
                                   (place->scratch / "characters.ai").string() + "'";
        ASSERT_EQ(0, std::system(unpack.c_str()));
        for (const auto& entry : fs::directory_iterator(fonts / "fonts/truetype/yusei-magic")) {
            fs::copy(entry, place->scratch / "library");
        }
        (void)place->Sample("business-card.ai");
        // So that the save changes the file's time.
        fs::last_write_time(place->scratch / "business-card.ai",
                            fs::file_time_type::clock::now() - std::chrono::hours(24));
        place->WriteFile(place->scratch / "actions",
                         "open characters.ai\nexpect font YuseiMagic-Regular activated\n"
                         "open business-card.ai\n"
                         "text DejaVuSansMono \"Set in a font that was not in the file\"\n"
                         "save\nclose\nexpect no font DejaVuSerif-Bold\nopen leaflet.eps\n"
                         "open letterhead.ait\nopen missing-font.pdf\nexpect dialog dismissed\n"
                         "tick 2\nshow menu\npanel\n"
                         "expect panel YuseiMagic-Regular\n"
                         "menu \"Select Library/First\"\nshow menu\n");
    }
    ExpectTheSame("script actions");
    if (IsSkipped()) return;
    EXPECT_EQ(0, machO.status) << machO.output << machO.errors;
}

// The dialog is dismissed by the key event that the bundle's category sends.
TEST_F(MachO, DismissesTheMissingFontsDialog)
{
    machO.RunWithJournal("open missing-font.pdf");
    SkipIfNotRun(machO.status);
    if (IsSkipped()) return;
    EXPECT_THAT(machO.output, HasSubstr("missing-fonts dialog: dismissed"));
    EXPECT_THAT(machO.Journal(), HasSubstr(R"("op":"key event","args":{"keyCode":53,"type":10},)"
                                           R"("result":"dismissed"})"));
}

TEST_F(MachO, AJournalWithOneOtherArgumentIsFound)
{
    ExpectTheSame("open leaflet.eps");
    if (IsSkipped()) return;
    std::string journal = machO.Journal();
    const size_t at = journal.find(R"("selector":"Shutdown")");
    ASSERT_NE(std::string::npos, at);
    journal.replace(at, 21, R"("selector":"Shutdowm")");
    machO.WriteFile(machO.scratch / "journal", journal);
    EXPECT_EQ(1, CompareJournals());
    EXPECT_THAT(comparison, HasSubstr("Shutdowm"));
}

class MachOSession : public TwoPlugins, public testing::WithParamInterface<const char*> {};

TEST_P(MachOSession, IsPlayedAsOnLinux)
{
    onLinux.CopySession(GetParam());
    machO.CopySession(GetParam());
    ExpectTheSame("script session");
    if (IsSkipped()) return;
    EXPECT_EQ(0, machO.status);
}

INSTANTIATE_TEST_SUITE_P(All, MachOSession, testing::ValuesIn(kSessionNames),
                         [](const auto& information) { return GetNameOfCore(information.param); });

// Each of the 26 names missing, others that the plug-in must refuse, and those that it takes.
class MachOCore : public TwoPlugins, public testing::WithParamInterface<const char*> {
protected:
    MachOCore()
    {
        onLinux.pluginCore = fs::path(SCRIPTED_PLUGIN_CORE_FOLDER) / GetParam();
        machO.pluginCore = onLinux.pluginCore;
    }
};

TEST_P(MachOCore, IsRefusedAsOnLinux)
{
    ASSERT_TRUE(fs::exists(machO.pluginCore / "PluginCore.framework/PluginCore"));
    ExpectTheSame("open leaflet.eps");
    if (IsSkipped()) return;
    EXPECT_EQ(4, machO.status);
    EXPECT_THAT(machO.errors, HasSubstr("Incompatible PluginCore"));
    EXPECT_THAT(machO.Journal(), HasSubstr("Incompatible PluginCore"));
}

INSTANTIATE_TEST_SUITE_P(All, MachOCore, testing::ValuesIn(kRefusedCores),
                         [](const auto& information) { return GetNameOfCore(information.param); });

class MachOOtherCore : public MachOCore {};

TEST_P(MachOOtherCore, IsUsedAsOnLinux) { ExpectTheSame("open leaflet.eps"); }

INSTANTIATE_TEST_SUITE_P(All, MachOOtherCore,
                         testing::Values("complete", "initialization-fails", "no-version-text"),
                         [](const auto& information) { return GetNameOfCore(information.param); });

// The difference that docs/MACOS.md lists: a bundle opens without its library, and has no function.
TEST_F(MachO, OpensAFrameworkWithoutALibrary)
{
    machO.pluginCore = fs::path(SCRIPTED_PLUGIN_CORE_FOLDER) / "not-a-library";
    machO.RunWithJournal("open leaflet.eps");
    SkipIfNotRun(machO.status);
    if (IsSkipped()) return;
    EXPECT_EQ(4, machO.status);
    EXPECT_THAT(machO.errors, HasSubstr("Incompatible PluginCore"));
}

TEST_F(MachO, WithoutPluginCoreShowsTheAlertOfLinux)
{
    onLinux.pluginCore.clear();
    machO.pluginCore.clear();
    ExpectTheSame("open leaflet.eps");
    if (IsSkipped()) return;
    EXPECT_EQ(4, machO.status);
    EXPECT_THAT(machO.errors, HasSubstr("Missing PluginCore"));
}
