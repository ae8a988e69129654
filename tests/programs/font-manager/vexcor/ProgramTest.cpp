#include <signal.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

class ProgramTest : public VexcorScene {
protected:
    fs::path AddFont(const std::string& name, const std::string& folder = "") const
    {
        return FontTestHome::CopyFont(name, home.GetLibrary() / folder);
    }
};

TEST_F(ProgramTest, InstallWritesThePathOfTheProgram)
{
    EXPECT_EQ(vexcor::kSuccess, Run({"install"})) << output;
    EXPECT_EQ("vexcor.path=" VEXCOR_PROGRAM "\n", ReadFile(GetLaunchFile()));
    EXPECT_THAT(output, HasSubstr(GetLaunchFile().string()));
}

TEST_F(ProgramTest, InstallKeepsTheUsersLines)
{
    FontTestHome::WriteFile(GetLaunchFile(), "mine=1\nvexcor.path=/old/Vexcor\n");
    EXPECT_EQ(vexcor::kSuccess, Run({"install"})) << output;
    EXPECT_EQ("mine=1\nvexcor.path=" VEXCOR_PROGRAM "\n", ReadFile(GetLaunchFile()));
}

TEST_F(ProgramTest, InstallReportsAFolderWhereItsFileBelongs)
{
    fs::create_directories(GetLaunchFile());
    EXPECT_EQ(vexcor::kFileFailed, Run({"install"}));
    EXPECT_EQ("Vexcor: " + GetLaunchFile().string() + ": cannot be read: not a file\n", output);
    EXPECT_TRUE(fs::is_empty(GetLaunchFile()));
}

TEST_F(ProgramTest, ListPrintsEachFontAndSkipsBadFiles)
{
    const fs::path file = AddFont("DejaVuSans");
    FontTestHome::WriteFile(home.GetLibrary() / "bad.ttf", "bad");
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    EXPECT_THAT(output, HasSubstr("DejaVuSans  inactive   " + file.string() + "\n"));
    EXPECT_THAT(output, HasSubstr("Vexcor: " + (home.GetLibrary() / "bad.ttf").string() + ": "));
}

TEST_F(ProgramTest, ListAsJsonHasALineForEachFont)
{
    AddFont("DejaVuSans");
    AddFont("DejaVuSerif");
    OpenServices().activation.Activate("/a.ai", {"DejaVuSerif"});
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--json"}));
    std::istringstream lines(output);
    std::map<std::string, std::string> states;
    for (std::string line; std::getline(lines, line);) {
        const auto font = nlohmann::json::parse(line);
        states[font.at("PostScriptName")] = font.at("state");
    }
    EXPECT_THAT(states, testing::ElementsAre(testing::Pair("DejaVuSans", "inactive"),
                                             testing::Pair("DejaVuSerif", "activated")));
}

TEST_F(ProgramTest, ListSaysTheSameAsTextAndAsJson)
{
    for (const char* name : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"}) AddFont(name);
    const fs::path other = AddFont("DejaVuSans", "other");
    fs::last_write_time(other, fs::last_write_time(other) - std::chrono::hours(1));
    FontTestHome::CopyFont("DejaVuSansMono", home.GetUserFonts());
    OpenServices().activation.Activate("/a.ai", {"DejaVuSerif"});
    EXPECT_EQ(vexcor::kSuccess, Run({"list", "--json"}));
    std::istringstream lines(output);
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    std::istringstream texts(output);
    std::set<std::string> states;
    for (std::string line, text; std::getline(lines, line) && std::getline(texts, text);) {
        const auto font = nlohmann::json::parse(line);
        std::istringstream words(text);
        std::string name, state, file;
        words >> name >> state >> file;
        EXPECT_EQ(font.at("PostScriptName"), name);
        EXPECT_EQ(font.at("state"), state);
        EXPECT_EQ(font.at("file"), file);
        states.insert(state);
    }
    EXPECT_THAT(states, testing::ElementsAre("activated", "active", "inactive"));
}

TEST_F(ProgramTest, WhyNamesDocumentsFileAndOtherFiles)
{
    const fs::path file = AddFont("DejaVuSans", "used");
    const fs::path other = AddFont("DejaVuSans", "old");
    fs::last_write_time(other, fs::last_write_time(file) - std::chrono::hours(1));
    OpenServices().activation.Activate("/doc\n.ai", {"DejaVuSans"});
    EXPECT_EQ(vexcor::kSuccess, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, StartsWith("DejaVuSans: activated: held by open documents\n"));
    EXPECT_THAT(output, HasSubstr("    file: " + file.string() + "\n"));
    EXPECT_THAT(output, HasSubstr("    held by: /doc?.ai, open in test (process " +
                                  std::to_string(getpid()) + ")\n"));
    EXPECT_THAT(output, HasSubstr("    other file with this name: " + other.string() + "\n"));
}

TEST_F(ProgramTest, WhyNamesTheFileOfAFontThatIsInstalled)
{
    AddFont("DejaVuSans");
    const fs::path installed = FontTestHome::CopyFont("DejaVuSans", home.GetUserFonts());
    EXPECT_EQ(vexcor::kSuccess, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, AllOf(StartsWith("DejaVuSans: active: "), HasSubstr(installed.string())));
}

TEST_F(ProgramTest, WhyGivesTheReasonForAnInactiveFont)
{
    const fs::path file = AddFont("DejaVuSans");
    FontTestHome::WriteFile(home.GetLibrary() / "Broken.ttf", "bad");
    EXPECT_EQ(vexcor::kNegative, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, StartsWith("DejaVuSans: inactive: no open document holds it\n"));
    EXPECT_EQ(vexcor::kNegative, Run({"why", "Nowhere"}));
    EXPECT_EQ("Nowhere: inactive: in no font library\n", output);
    EXPECT_EQ(vexcor::kNegative, Run({"why", "dejavu-sans"}));
    EXPECT_THAT(output, HasSubstr("    similar name: DejaVuSans\n"));
    EXPECT_EQ(vexcor::kNegative, Run({"why", "Broken"}));
    EXPECT_THAT(output, HasSubstr("    unusable file: "));
    FontTestHome::WriteFile(home.GetPath() / "config/Corvanta/settings.json",
                            R"({"FontActivation":"0"})");
    EXPECT_EQ(vexcor::kNegative, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, StartsWith("DejaVuSans: inactive: activation is off\n"));
}

TEST_F(ProgramTest, WhyReportsThatTheFileIsGone)
{
    const fs::path file = AddFont("DejaVuSans");
    OpenServices().activation.Activate("/a.ai", {"DejaVuSans"});
    fs::remove(file);
    EXPECT_EQ(vexcor::kNegative, Run({"why", "DejaVuSans"}));
    EXPECT_THAT(output, HasSubstr(": the font file is gone; no longer active: DejaVuSans\n"));
    EXPECT_THAT(output, HasSubstr("DejaVuSans: inactive: its file cannot be read any more\n"));
    EXPECT_THAT(output, HasSubstr("    file: " + file.string() + "\n"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::IsEmpty());
}

TEST_F(ProgramTest, RepairReportsThatAFileIsGone)
{
    const fs::path file = AddFont("DejaVuSans");
    OpenServices().activation.Activate("/a.ai", {"DejaVuSans"});
    fs::remove(file);
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"}));
    EXPECT_THAT(output, HasSubstr("deactivated, as its file is gone: " + file.string() + "\n"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::IsEmpty());
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"}));
    EXPECT_EQ("nothing to repair\n", output);
}

TEST_F(ProgramTest, AddKeepsAFolderAndReportsOneThatCannotBeRead)
{
    const fs::path folder = home.GetPath() / "mine";
    FontTestHome::CopyFont("DejaVuSans", folder);
    EXPECT_EQ(vexcor::kSuccess, Run({"add", folder}));
    EXPECT_EQ(folder.string() + ": added, with 1 font\n", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"add", folder}));
    EXPECT_EQ(folder.string() + ": is in the font library already\n", output);
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    EXPECT_THAT(output, HasSubstr("DejaVuSans"));
    EXPECT_EQ(vexcor::kFileFailed, Run({"add", "/no/such"}));
    EXPECT_EQ("Vexcor: /no/such: No such file or directory\n", output);
    EXPECT_EQ(vexcor::kFileFailed, Run({"add", folder / "DejaVuSans.ttf"}));
    EXPECT_THAT(output, HasSubstr("DejaVuSans.ttf: Not a directory"));
}

TEST_F(ProgramTest, RepairPrintsWhatItRepaired)
{
    AddFont("DejaVuSans");
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"}));
    EXPECT_EQ("nothing to repair\n", output);
    OpenServices().activation.Activate("/a.ai", {"DejaVuSans"});
    fs::remove_all(home.GetUserFonts() / "corvanta");
    fs::create_directories(home.GetUserFonts() / "corvanta/63/g99");
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"}));
    EXPECT_EQ(
        "folder: removed group 99, which isn't in the database\n"
        "folder: restored group 1, 1 file\n",
        output);
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), testing::ElementsAre("DejaVuSans"));
}

TEST_F(ProgramTest, RepairKeepsADamagedDatabaseUnderAnotherName)
{
    AddFont("DejaVuSans");
    const fs::path database = home.GetData() / "Corvanta/fonts.db";
    FontTestHome::WriteFile(database, std::string(8192, 'x'));
    EXPECT_EQ(vexcor::kDatabaseFailed, Run({"list"}));
    EXPECT_EQ("Vexcor: " + database.string() +
                  ": file is not a database; 'Vexcor repair' keeps it under another name and "
                  "creates a new one\n",
              output);
    EXPECT_EQ(vexcor::kSuccess, Run({"repair"})) << output;
    EXPECT_THAT(output, HasSubstr("renamed to " + database.string() + ".damaged-1"));
    EXPECT_EQ(std::string(8192, 'x'), ReadFile(database.string() + ".damaged-1"));
    EXPECT_EQ(vexcor::kSuccess, Run({"list"}));
    EXPECT_THAT(output, HasSubstr("DejaVuSans"));
}

// From too little memory to load the program up to enough for it. In between there is a range in
// which not even an exception can be allocated. SIGSEGV is accepted: the kernel sends it when the
// stack cannot grow.
TEST_F(ProgramTest, WithoutMemoryItEndsWithOneLine)
{
    if (IS_SANITIZED) GTEST_SKIP() << "a sanitizer needs more address space";
    int worked = 0;
    int refused = 0;
    const auto run = [&](int kibibytes, const char* argument) {
        return ChildProcess({"/bin/sh", "-c", "ulimit -c 0; ulimit -v $0; exec \"$@\"",
                             std::to_string(kibibytes), VEXCOR_PROGRAM, argument},
                            home.GetPath() / "output");
    };
    for (int kibibytes = 8000; kibibytes < 60000 && worked < 3; kibibytes += 48) {
        ChildProcess program = run(kibibytes, "list");
        const int status = program.Wait();
        const std::string text = program.GetOutput();
        // GnuTLS, which qpdf brings along, ends the process before any code of Vexcor runs.
        if (text.find("Error in GnuTLS initialization") != std::string::npos) continue;
        if (status == -SIGABRT) {
            // qpdf builds tables before any code of Vexcor runs, whatever Vexcor is asked to do.
            ASSERT_EQ(-SIGABRT, run(kibibytes, "--version").Wait()) << kibibytes << ": " << text;
            continue;
        }
        if (status == 0) ++worked;
        // SIGSEGV is possible: fontconfig dereferences null if it cannot allocate a rule of its own
        // configuration.
        if (status != vexcor::kFileFailed && status != vexcor::kDatabaseFailed) continue;
        ++refused;
        ASSERT_THAT(text, AllOf(StartsWith("Vexcor: "), Not(HasSubstr("bad_alloc")))) << kibibytes;
        ASSERT_EQ(1, std::count(text.begin(), text.end(), '\n')) << kibibytes << ": " << text;
    }
    EXPECT_EQ(3, worked);
    EXPECT_LT(0, refused);
}

TEST_F(ProgramTest, TheLogHasALineForEachActionAndEachError)
{
    const std::string log = home.GetPath() / "log";
    EXPECT_EQ(vexcor::kSuccess, Run({"install", "--log", log}));
    EXPECT_EQ(vexcor::kFileFailed, Run({"add", "/no/such/100%s", "--log", log}));
    std::istringstream lines(ReadFile(log));
    std::string first;
    std::string second;
    std::getline(lines, first);
    std::getline(lines, second);
    EXPECT_THAT(first, testing::MatchesRegex(
                           "\\[[0-9T:.Z-]+\\]\t\\[Vexcor\\]\t\\[Info\\]\t.*points to .*"));
    EXPECT_THAT(second, HasSubstr("\t[Vexcor]\t[Error]\t/no/such/100%s: No such file"));
    EXPECT_EQ(vexcor::kFileFailed, Run({"list", "--log", home.GetPath()}));
    EXPECT_THAT(output, AllOf(StartsWith("Vexcor: " + home.GetPath().string() + ": cannot be"),
                              Not(HasSubstr("Success"))));
}

TEST_F(ProgramTest, AMissingHomeFolderIsReportedInOneLine)
{
    unsetenv("XDG_DATA_HOME");
    unsetenv("HOME");
    EXPECT_EQ(vexcor::kFileFailed, Run({"list"}));
    EXPECT_EQ("Vexcor: no home folder: neither XDG_DATA_HOME nor HOME is set\n", output);
}

}  // namespace
