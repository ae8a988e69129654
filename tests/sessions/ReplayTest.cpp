#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

#include "GoldenJournal.h"
#include "ScratchFolder.h"
#include "SessionNames.h"

namespace fs = std::filesystem;

namespace {

std::string ReadText(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace

// Plays the journal of a session to the plug-in. There are no documents, no font and no PluginCore
// but the one that gives the recorded results.
class SessionReplay : public testing::TestWithParam<const char*> {
protected:
    SessionReplay()
    {
        (void)scratch.Write("fonts.conf",
                            "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">"
                            "<fontconfig><cachedir>" +
                                scratch.Path("cache") + "</cachedir></fontconfig>");
    }

    // Runs a command in the scratch folder; returns its exit status.
    int Run(const std::string& command)
    {
        const std::string whole = "cd '" + scratch.Path() +
                                  "'; unset CORVANTA_FONT_LIBRARY CORVANTA_INTERACTIVE; export "
                                  "FONTCONFIG_FILE=\"$PWD/fonts.conf\" HOME=\"$PWD/home\" "
                                  "XDG_DATA_HOME= XDG_CONFIG_HOME= XDG_CACHE_HOME= "
                                  "XDG_STATE_HOME=; { " +
                                  command + "; } >out 2>err </dev/null";
        const int status = std::system(whole.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int Replay(const std::string& plugin, const std::string& arguments = {})
    {
        return Run("'" HEADLESS_HOST_PROGRAM "' replay '" + journal.string() + "' --plugin '" +
                   plugin + "' --frameworks '" + frameworks + "' " + arguments);
    }

    const ScratchFolder scratch;
    const std::string name = GetParam();
    const fs::path journal = fs::path(SESSIONS_FOLDER) / "journals" / (name + ".gz");
    // The bus of the session.
    const std::string frameworks = name == "listener-fails-once"
                                       ? SCRIPTED_PLUG_PLUG_FOLDER "/" + name
                                       : PRIVATE_FRAMEWORKS_FOLDER;
};

TEST_P(SessionReplay, PluginMakesTheRecordedCalls)
{
    EXPECT_EQ(0, Replay(PLUG_IN_FOLDER)) << ReadText(scratch.Path("err"));
    EXPECT_EQ("", ReadText(scratch.Path("err")));
    EXPECT_THAT(ReadText(scratch.Path("out")), testing::HasSubstr(" lines are equal\n"));
    EXPECT_FALSE(fs::exists(scratch.Path("home")));
}

// A session that was changed needs a new journal.
TEST_P(SessionReplay, JournalIsThatOfTheGoldenFile)
{
    ASSERT_EQ(0, Run("gzip -dc '" + journal.string() + "'")) << ReadText(scratch.Path("err"));
    EXPECT_EQ(ReadText(fs::path(SESSIONS_FOLDER) / "golden" / (name + ".txt")),
              MakeGolden(ReadText(scratch.Path("out")), "SCRATCH"));
}

INSTANTIATE_TEST_SUITE_P(All, SessionReplay, testing::ValuesIn(kSessionNames),
                         [](const auto& information) { return GetCaseName(information.param); });

// The port that a simulated script asks for is asked for at the same place.
TEST(SimulatedSession, PortRequestsAreReplayed)
{
    const ScratchFolder scratch;
    (void)scratch.Write("script", "simulate\ntick\nask-port\ntick\nask-port\nexpect port 4711\n");
    const auto run = [&scratch](const std::string& arguments) {
        return std::system(("cd '" + scratch.Path() + "'; '" HEADLESS_HOST_PROGRAM "' " +
                            arguments +
                            " --plugin '" PLUG_IN_FOLDER
                            "' --frameworks '" PRIVATE_FRAMEWORKS_FOLDER "' >out 2>&1 </dev/null")
                               .c_str());
    };
    ASSERT_EQ(0, run("script script --journal journal")) << ReadText(scratch.Path("out"));
    EXPECT_EQ(0, run("replay journal")) << ReadText(scratch.Path("out"));
}

// The line with what a function of PluginCore returned follows those of the calls within it.
TEST(SimulatedSession, AJournalThatEndsWithinAnyCallIsPlayedUpToThere)
{
    const ScratchFolder scratch;
    (void)scratch.Write("script", "simulate\nstart\nshow menu\n");
    // A plug-in that isn't shut down keeps its memory.
    const auto run = [&scratch](const std::string& arguments) {
        return std::system(("cd '" + scratch.Path() +
                            "'; ASAN_OPTIONS=$ASAN_OPTIONS:detect_leaks=0 "
                            "'" HEADLESS_HOST_PROGRAM "' " +
                            arguments + " --plugin '" PLUG_IN_FOLDER "' >out 2>&1 </dev/null")
                               .c_str());
    };
    ASSERT_EQ(0, run("script script --journal journal")) << ReadText(scratch.Path("out"));
    std::vector<std::string> lines;
    std::istringstream whole(ReadText(scratch.Path("journal")));
    for (std::string line; std::getline(whole, line);) lines.push_back(line + "\n");
    size_t inCall = 0;  // lines from the first call within CreateMenusFromJSONBuffer on
    while (lines.at(inCall).find("CountMenuItems") == std::string::npos) ++inCall;
    for (size_t count = inCall; count < inCall + 12; ++count) {
        std::string text;
        for (size_t i = 0; i < count; ++i) text += lines.at(i);
        (void)scratch.Write("cut", text);
        EXPECT_EQ(0, run("replay cut")) << count << ReadText(scratch.Path("out"));
        EXPECT_THAT(ReadText(scratch.Path("out")), testing::HasSubstr(" lines are equal\n"));
    }
}

TEST(SessionJournals, BelongToSessions)
{
    const std::set<std::string> sessions(std::begin(kSessionNames), std::end(kSessionNames));
    std::set<std::string> journals;
    for (const auto& file : fs::directory_iterator(fs::path(SESSIONS_FOLDER) / "journals")) {
        journals.insert(file.path().stem());
        EXPECT_GT(200000U, file.file_size()) << file.path();
    }
    EXPECT_EQ(sessions, journals);
}
