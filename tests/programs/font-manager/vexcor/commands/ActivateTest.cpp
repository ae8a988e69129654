#include <signal.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class ActivateTest : public VexcorScene {
protected:
    ActivateTest()
    {
        mSans = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary() / "sans");
        FontTestHome::CopyFont("DejaVuSans-Bold", home.GetLibrary() / "sans");
        FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary() / "serif");
    }

    std::string AddDocument(const std::string& fonts) const
    {
        const fs::path file = home.GetPath() / "a.eps";
        FontTestHome::WriteFile(file,
                                "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n"
                                "%%DocumentFonts: " +
                                    fonts + "\n%%EndComments\nshowpage\n%%EOF\n");
        return file;
    }

    std::string mSans;
};

TEST_F(ActivateTest, AFontRemainsActiveWhateverStartsAndEnds)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "DejaVuSans"}));
    EXPECT_EQ("DejaVuSans  activated\n", output);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"}));
    EXPECT_EQ("nothing to repair\n", output);
    {
        const auto daemon = StartDaemon();
        std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        daemon->Send(SIGTERM);
        EXPECT_EQ(vexcor::kSuccess, daemon->Wait());
    }
    OpenServices().activation.Activate("/a.ai", {"DejaVuSans"});
    OpenServices().activation.ReleaseAll();
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "DejaVuSans"}));
    EXPECT_EQ("DejaVuSans  active already\n", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, AllOf(StartsWith("DejaVuSans: activated: activated by the user\n"),
                              HasSubstr("    held by: the user, until Vexcor deactivate\n")));
    EXPECT_EQ(vexcor::kSuccess, Run({"deactivate", "DejaVuSans"}));
    EXPECT_EQ("DejaVuSans  deactivated\n", output);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(ActivateTest, AWordIsANameAPatternAFileADocumentOrAFolder)
{
    const std::vector<std::pair<std::string, std::set<std::string>>> words = {
        {"DejaVuSans", {"DejaVuSans"}},
        {"*-bold", {"DejaVuSans-Bold"}},
        {mSans, {"DejaVuSans"}},
        {AddDocument("DejaVuSerif"), {"DejaVuSerif"}},
        {home.GetLibrary() / "sans/", {"DejaVuSans", "DejaVuSans-Bold"}},
        {home.GetLibrary(), {"DejaVuSans", "DejaVuSans-Bold", "DejaVuSerif"}}};
    for (const auto& [word, names] : words) {
        EXPECT_EQ(vexcor::kSuccess, Run({"activate", word})) << output;
        EXPECT_EQ(names, FontTestHome::ListOfOtherProcess()) << word;
        EXPECT_EQ(vexcor::kSuccess, Run({"deactivate", word})) << output;
        EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty()) << word;
    }
}

TEST_F(ActivateTest, WhatCannotBeActivatedIsNamedAndTheRestIsActivated)
{
    fs::create_directories(home.GetPath() / "empty");
    FontTestHome::WriteFile(home.GetPath() / "text.txt", "text");
    const std::string outside = FontTestHome::CopyFont("DejaVuSansMono", home.GetPath() / "other");
    const std::string empty = home.GetPath() / "empty";
    const std::string text = home.GetPath() / "text.txt";
    EXPECT_EQ(vexcor::kNegative, Run({"activate", "Nowhere", "dejavusans", "X*", "/no/such.ttf",
                                      empty, text, outside, "DejaVuSerif"}));
    EXPECT_THAT(
        output,
        AllOf(HasSubstr("Vexcor: Nowhere: no font of this name in the font library\n"),
              HasSubstr("Vexcor: dejavusans: no font of this name in the font library; similar: "
                        "DejaVuSans\n"),
              HasSubstr("Vexcor: X*: no font of this name"),
              HasSubstr("Vexcor: /no/such.ttf: no such file or folder\n"),
              HasSubstr("Vexcor: " + empty + ": no font of the font library is in this folder\n"),
              HasSubstr("Vexcor: " + text + ": "),
              HasSubstr("Vexcor: " + outside + ": not in the font library; add its folder"),
              HasSubstr("DejaVuSerif  activated\n")));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
    EXPECT_EQ(vexcor::kNegative, Run({"activate", AddDocument("DejaVuSans NoSuchFont")}));
    EXPECT_THAT(output,
                AllOf(HasSubstr("DejaVuSans  activated\n"), HasSubstr("NoSuchFont  missing\n")));
    EXPECT_EQ(vexcor::kWrongUse, Run({"activate"}));
    EXPECT_EQ(vexcor::kWrongUse, Run({"deactivate"}));
    EXPECT_EQ(vexcor::kWrongUse, Run({"deactivate", "--all", "DejaVuSans"}));
}

TEST_F(ActivateTest, OtherFilesOfTheSameNameAreNamed)
{
    const fs::path older = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary() / "old");
    fs::last_write_time(older, fs::last_write_time(mSans) - std::chrono::hours(1));
    EXPECT_EQ(vexcor::kNegative, Run({"activate", older}));
    EXPECT_THAT(output, HasSubstr("Vexcor: " + older.string() + ": DejaVuSans is in " + mSans +
                                  " too, which is used\n"));
}

TEST_F(ActivateTest, DocumentsKeepTheirFontsWhenTheUserDeactivates)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "DejaVuSans", "DejaVuSerif"}));
    OpenServices().activation.Hold("/a.ai", {"DejaVuSans"});
    EXPECT_EQ(vexcor::kSuccess, Run({"deactivate", "--all"}));
    EXPECT_EQ("DejaVuSans   held by documents\nDejaVuSerif  deactivated\n", output);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(vexcor::kNegative, Run({"deactivate", "DejaVuSans"}));
    EXPECT_EQ("Vexcor: DejaVuSans: not activated by Vexcor activate\n", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"deactivate", "--all"}));
    EXPECT_EQ("", output);
}

TEST_F(ActivateTest, JsonHasALineForEachFont)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "--json", "DejaVuSans"}));
    EXPECT_EQ("{\"PostScriptName\":\"DejaVuSans\",\"result\":\"activated\"}\n", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"deactivate", "--json", "DejaVuSans"}));
    EXPECT_EQ("{\"PostScriptName\":\"DejaVuSans\",\"result\":\"deactivated\"}\n", output);
}

TEST_F(ActivateTest, KilledAtAnyMomentTheFontIsActiveOrNot)
{
    (void)OpenServices();
    for (int milliseconds = 0; milliseconds < 90; milliseconds += 3) {
        ChildProcess program({VEXCOR_PROGRAM, "activate", "DejaVuSans"}, home.GetPath() / "out");
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        program.Send(SIGKILL);
        (void)program.Wait();  // it may have ended before
        ASSERT_EQ(vexcor::kSuccess, Run({"repair"})) << output;
        ASSERT_EQ(OpenServices().activation.GetActive(), FontTestHome::ListOfOtherProcess());
        ASSERT_EQ(vexcor::kSuccess, Run({"deactivate", "--all"})) << output;
        ASSERT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty()) << milliseconds;
    }
}

TEST_F(ActivateTest, ListIsLimitedByPatternFamilyAndState)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "DejaVuSerif"}));
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "*SANS*"}));
    EXPECT_THAT(output, AllOf(HasSubstr("DejaVuSans "), HasSubstr("DejaVuSans-Bold "),
                              Not(HasSubstr("Serif"))));
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--state", "activated"}));
    EXPECT_THAT(output, StartsWith("DejaVuSerif"));
    EXPECT_THAT(output, Not(HasSubstr("DejaVuSans ")));
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--family", "dejavu serif"}));
    EXPECT_THAT(output, AllOf(StartsWith("DejaVuSerif"), Not(HasSubstr("DejaVuSans "))));
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--family", "DejaVu*", "--state", "inactive", "*-*"}));
    EXPECT_THAT(output, AllOf(StartsWith("DejaVuSans-Bold"), Not(HasSubstr("DejaVuSans "))));
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "nothing"}));
    EXPECT_EQ("", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--names"}));
    EXPECT_EQ("DejaVuSans\nDejaVuSans-Bold\nDejaVuSerif\n", output);
    EXPECT_EQ(vexcor::kWrongUse, Run({"list", "--state", "asleep"}));
    EXPECT_THAT(output, HasSubstr("asleep"));
    EXPECT_EQ(vexcor::kWrongUse, Run({"list", "--names", "--json"}));
}

TEST_F(ActivateTest, ListKnowsFamiliesWithoutReadingTheFiles)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    FontTestHome::DamageUnnoticed(home.GetLibrary() / "serif/DejaVuSerif.ttf");
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--family", "DejaVu Serif"}));
    EXPECT_THAT(output, StartsWith("DejaVuSerif "));
}

// Fonts that are active without Vexcor needn't be in its library.
TEST_F(ActivateTest, ListReadsTheFamilyOfAFileOutsideOfTheLibrary)
{
    FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--family", "DejaVu Serif"}));
    EXPECT_THAT(output,
                AllOf(StartsWith("DejaVuSerif  "), HasSubstr(home.GetUserFonts().string())));
}

TEST_F(ActivateTest, RemoveForgetsAnAddedFolder)
{
    const fs::path mine = home.GetPath() / "mine";
    FontTestHome::CopyFont("DejaVuSansMono", mine);
    EXPECT_EQ(vexcor::kSuccess, Run({"add", "--json", mine}));
    EXPECT_EQ("{\"folder\":\"" + mine.string() + "\",\"added\":true,\"fonts\":1}\n", output);
    OpenServices().folders.Select(mine);
    EXPECT_EQ(vexcor::kSuccess, Run({"remove", mine.string() + "/"}));
    EXPECT_EQ(mine.string() + ": removed\n", output);
    EXPECT_EQ("", OpenServices().folders.GetSelected());
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--names"}));
    EXPECT_THAT(output, Not(HasSubstr("Mono")));
    EXPECT_EQ(vexcor::kNegative, Run({"remove", mine}));
    EXPECT_EQ("Vexcor: " + mine.string() + ": not in the font library\n", output);
    EXPECT_EQ(vexcor::kNegative, Run({"remove", home.GetLibrary()}));
    EXPECT_THAT(output, HasSubstr("cannot be removed"));
    EXPECT_EQ(vexcor::kSuccess, Run({"add", mine}));
    fs::remove_all(mine);
    EXPECT_EQ(vexcor::kSuccess, Run({"remove", "--json", mine}));
    EXPECT_EQ("{\"folder\":\"" + mine.string() + "\",\"removed\":true}\n", output);
}

TEST_F(ActivateTest, StatusShowsLibraryFontsHoldersProgramsAndProblems)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"status"})) << output;
    EXPECT_EQ("library: 3 fonts in 3 files\n    " + home.GetLibrary().string() +
                  ": 3 fonts\nactivated: 0 fonts\nprograms: 0\nproblems: 0\n",
              output);
    EXPECT_EQ(vexcor::kSuccess, Run({"activate", "DejaVuSans"}));
    OpenServices().activation.Activate("/a.ai", {"DejaVuSerif"});
    FontTestHome::WriteFile(home.GetLibrary() / "bad.ttf", "bad");
    EXPECT_EQ(vexcor::kNegative, Run({"status"}));
    const std::string test = "test (process " + std::to_string(getpid()) + ")";
    EXPECT_THAT(output, AllOf(HasSubstr("activated: 2 fonts\n    DejaVuSans: " + mSans +
                                        "\n        held by: the user, until Vexcor deactivate\n"),
                              HasSubstr("        held by: /a.ai, open in " + test + "\n"),
                              HasSubstr("programs: 1\n    " + test + "\n"),
                              HasSubstr("problems: 1\n    " +
                                        (home.GetLibrary() / "bad.ttf").string() + ": skipped: ")));
    EXPECT_EQ(vexcor::kNegative, Run({"status", "--json"}));
    const auto status = nlohmann::json::parse(output);
    EXPECT_EQ(3, status.at("fonts"));
    EXPECT_EQ("DejaVuSans", status.at("activated").at(0).at("PostScriptName"));
    EXPECT_EQ("/a.ai", status.at("activated").at(1).at("heldBy").at(0).at("document"));
    EXPECT_EQ(1U, status.at("programs").size());
    EXPECT_EQ(1U, status.at("problems").size());
}

TEST_F(ActivateTest, WatchWritesEventsAsJson)
{
    ChildProcess daemon({VEXCOR_PROGRAM, "watch", "--json"}, home.GetPath() / "events");
    ASSERT_TRUE(daemon.WaitForOutput("{\"event\":\"watching\",\"fonts\":3,\"files\":3"));
    FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    EXPECT_TRUE(daemon.WaitForOutput(
        "{\"event\":\"index\",\"filesRead\":1,\"filesRemoved\":0,\"fonts\":4}\n"));
    ChildProcess with({VEXCOR_PROGRAM, "with", AddDocument("DejaVuSans"), "--", "sleep", "1"},
                      home.GetPath() / "out");
    while (OpenServices().activation.GetActive().empty()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    with.Send(SIGKILL);
    EXPECT_TRUE(daemon.WaitForOutput("{\"event\":\"repaired\""));
    daemon.Send(SIGTERM);
    EXPECT_EQ(vexcor::kSuccess, daemon.Wait());
}

}  // namespace
