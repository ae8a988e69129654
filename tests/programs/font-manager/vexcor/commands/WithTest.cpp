#include <signal.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "PseudoTerminal.h"
#include "VexcorScene.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/system/Job.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using vexcor::Job;

namespace {

constexpr const char* kListFonts = "fc-list : postscriptname | sort";

void Sleep(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

class WithTest : public VexcorScene {
protected:
    WithTest()
    {
        for (const char* const font : {"DejaVuSans", "DejaVuSerif", "DejaVuSansMono"}) {
            FontTestHome::CopyFont(font, home.GetLibrary());
        }
    }

    // Writes an EPS that names fonts and the files that it places. Returns its path.
    std::string AddDocument(const std::string& name, const std::string& fonts,
                            const std::string& placed = {}) const
    {
        const fs::path file = home.GetPath() / name;
        FontTestHome::WriteFile(
            file, "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n%%DocumentFonts: " + fonts +
                      "\n" + (placed.empty() ? "" : "%%DocumentFiles: " + placed + "\n") +
                      "%%EndComments\nshowpage\n%%EOF\n");
        return file;
    }

    int RunWith(const std::vector<std::string>& files, const std::vector<std::string>& command)
    {
        std::vector<std::string> words = {"with"};
        words.insert(words.end(), files.begin(), files.end());
        words.emplace_back("--");
        words.insert(words.end(), command.begin(), command.end());
        return Run(words);
    }

    std::unique_ptr<ChildProcess> StartWith(const std::string& file,
                                            const std::string& script) const
    {
        const std::vector<std::string> words = {VEXCOR_PROGRAM, "with", file,  "--",
                                                "/bin/sh",      "-c",   script};
        return std::make_unique<ChildProcess>(words, home.GetPath() / "with-output");
    }

    // Nothing is active, and nobody is listed who would have it active.
    void ExpectNothingActive()
    {
        EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
        EXPECT_THAT(OpenServices().activation.GetActive(), IsEmpty());
    }
};

TEST_F(WithTest, TheFontsOfTheFileAndOfPlacedFilesAreActiveWhileTheCommandRuns)
{
    AddDocument("deep.eps", "DejaVuSansMono");
    AddDocument("placed.eps", "DejaVuSerif", "deep.eps");
    const std::string file = AddDocument("a.eps", "DejaVuSans", "placed.eps");
    EXPECT_EQ(0, RunWith({file}, {"/bin/sh", "-c", kListFonts}));
    EXPECT_EQ(
        ":postscriptname=DejaVuSans\n:postscriptname=DejaVuSansMono\n"
        ":postscriptname=DejaVuSerif\n",
        output);
    ExpectNothingActive();
}

TEST_F(WithTest, OnlyTheFontsOfTheFilesAreActive)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(0, RunWith({file}, {"/bin/sh", "-c", kListFonts}));
    EXPECT_EQ(":postscriptname=DejaVuSans\n", output);
}

TEST_F(WithTest, TheFontsAreActiveEvenIfActivationForHostsIsOff)
{
    FontTestHome::WriteFile(home.GetPath() / "config/Corvanta/settings.json",
                            R"({"FontActivation":"0"})");
    EXPECT_EQ(0, RunWith({AddDocument("a.eps", "DejaVuSans")}, {"/bin/sh", "-c", kListFonts}));
    EXPECT_EQ(":postscriptname=DejaVuSans\n", output);
}

TEST_F(WithTest, FilesAreAppendedOrPutInThePlaceOfBraces)
{
    const std::string a = AddDocument("a.eps", "DejaVuSans");
    const std::string b = AddDocument("b c.eps", "DejaVuSans");
    EXPECT_EQ(0, RunWith({a, b}, {"printf", "[%s]", "x"}));
    EXPECT_EQ("[x][" + a + "][" + b + "]", output);
    EXPECT_EQ(0, RunWith({a, b}, {"printf", "[%s]", "{}", "y"}));
    EXPECT_EQ("[" + a + "][" + b + "][y]", output);
    EXPECT_EQ(0, RunWith({a}, {"printf", "[%s]", "--in={}:{}", "{"}));
    EXPECT_EQ("[--in=" + a + ":" + a + "][{]", output);
    EXPECT_EQ(0, RunWith({a}, {"printf", "[%s]", "--", "-x"}));
    EXPECT_EQ("[--][-x][" + a + "]", output);
}

TEST_F(WithTest, TheExitStatusIsThatOfTheCommand)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(42, RunWith({file}, {"/bin/sh", "-c", "exit 42"}));
    EXPECT_EQ("", output);
    EXPECT_EQ(Job::kEndedBySignal + SIGKILL, RunWith({file}, {"/bin/sh", "-c", "kill -9 $$"}));
    EXPECT_EQ(Job::kEndedBySignal + SIGSEGV, RunWith({file}, {"/bin/sh", "-c", "kill -SEGV $$"}));
    ExpectNothingActive();
}

TEST_F(WithTest, ACommandThatCannotBeRunIsNamed)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(Job::kNotFound, RunWith({file}, {"no-such-program"}));
    EXPECT_EQ("Vexcor: no-such-program: cannot be run: No such file or directory\n", output);
    EXPECT_EQ(Job::kNotExecutable, RunWith({file}, {file}));
    EXPECT_EQ("Vexcor: " + file + ": cannot be run: Permission denied\n", output);
    ExpectNothingActive();
}

TEST_F(WithTest, AFileThatCannotBeReadIsNamedAndNothingIsRun)
{
    const std::string good = AddDocument("a.eps", "DejaVuSans");
    const std::string ran = home.GetPath() / "ran";
    EXPECT_EQ(vexcor::kFileFailed, RunWith({good, "/no/such.ai"}, {"touch", ran}));
    EXPECT_EQ("Vexcor: /no/such.ai: no such file\n", output);
    FontTestHome::WriteFile(home.GetPath() / "text.ai", "text");
    EXPECT_EQ(vexcor::kFileFailed, RunWith({home.GetPath() / "text.ai"}, {"touch", ran}));
    EXPECT_THAT(output, testing::StartsWith("Vexcor: " + (home.GetPath() / "text.ai").string()));
    EXPECT_FALSE(fs::exists(ran));
    EXPECT_EQ(vexcor::kWrongUse, RunWith({good}, {}));
    EXPECT_EQ("Vexcor: with: expected a command after -- (see Vexcor --help)\n", output);
    EXPECT_EQ(vexcor::kWrongUse, RunWith({good}, {""}));
    EXPECT_EQ(vexcor::kWrongUse, RunWith({}, {"true"}));
    EXPECT_THAT(output, HasSubstr("FILE"));
    ExpectNothingActive();
}

TEST_F(WithTest, MissingFontsAndPlacedFilesAreNamedAndTheCommandRuns)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans NoSuchFont", "gone.eps");
    EXPECT_EQ(0, RunWith({file}, {"/bin/sh", "-c", kListFonts}));
    EXPECT_THAT(output, AllOf(HasSubstr("Vexcor: " + file +
                                        ": neither active nor in the font library: NoSuchFont\n"),
                              HasSubstr("gone.eps"), HasSubstr(":postscriptname=DejaVuSans\n")));
}

TEST_F(WithTest, AFontThatAnotherProgramHoldsRemainsActive)
{
    OpenServices().activation.Activate("/b.ai", {"DejaVuSans"});
    EXPECT_EQ(0, RunWith({AddDocument("a.eps", "DejaVuSans DejaVuSerif")}, {"true"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    // The other way round: what the command needs remains as long as it runs.
    const auto with = StartWith(AddDocument("c.eps", "DejaVuSans"), "echo on; sleep 1");
    ASSERT_TRUE(with->WaitForOutput("on"));
    OpenServices().activation.Release("/b.ai");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    EXPECT_EQ(0, with->Wait());
    ExpectNothingActive();
}

TEST_F(WithTest, WhyNamesTheFileAndTheCommand)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(0, RunWith({file}, {VEXCOR_PROGRAM, "why", "DejaVuSans", "--log", "{}.log"}))
        << output;
    EXPECT_THAT(output, HasSubstr("held by: " + file + ", open in Vexcor with " VEXCOR_PROGRAM));
}

TEST_F(WithTest, SignalsArePassedOn)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGUSR1}) {
        const auto with = StartWith(file, "ulimit -c 0; echo on; exec sleep 60");
        ASSERT_TRUE(with->WaitForOutput("on"));
        with->Send(signal);
        EXPECT_EQ(Job::kEndedBySignal + signal, with->Wait()) << with->GetOutput();
    }
    const auto with = StartWith(file, "trap 'echo caught; exit 5' TERM; echo on; sleep 60 & wait");
    ASSERT_TRUE(with->WaitForOutput("on"));
    with->Send(SIGTERM);
    EXPECT_EQ(5, with->Wait());
    EXPECT_THAT(with->GetOutput(), HasSubstr("caught"));
    ExpectNothingActive();
}

TEST_F(WithTest, TheCommandIsNotStartedWithBlockedOrIgnoredSignals)
{
    EXPECT_EQ(0, RunWith({AddDocument("a.eps", "DejaVuSans")},
                         {"/bin/sh", "-c", "grep 'SigBlk\\|SigIgn' /proc/self/status"}));
    // The C library uses signals 32 and 33 itself.
    EXPECT_THAT(output, testing::MatchesRegex("SigBlk:\t0{16}\nSigIgn:\t[0-9a-f]{8}[08]0{7}\n"));
}

TEST_F(WithTest, ACommandThatIsKilledWithItsGroupLeavesNoFontActive)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(Job::kEndedBySignal + SIGKILL,
              RunWith({file}, {"/bin/sh", "-c", "sleep 60 & kill -9 0"}));
    EXPECT_EQ("", output);
    ExpectNothingActive();
}

TEST_F(WithTest, WhatTheCommandLeavesInItsGroupIsWaitedFor)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(3, RunWith({file}, {"/bin/sh", "-c", "(sleep 0.3; fc-list) & exit 3"}));
    EXPECT_THAT(output, HasSubstr("DejaVuSans"));
    EXPECT_EQ(3, RunWith({file}, {"/bin/sh", "-c", "sleep 1.5 & exit 3"}));
    EXPECT_EQ("Vexcor: /bin/sh: has ended; waiting for what it left running\n", output);
    const auto with = StartWith(file, "sleep 60 & exit 3");
    ASSERT_TRUE(with->WaitForOutput("waiting"));
    with->Send(SIGTERM);
    EXPECT_EQ(3, with->Wait());
    ExpectNothingActive();
}

TEST_F(WithTest, AProcessThatDetachedItselfIsNamedAndNotWaitedFor)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    EXPECT_EQ(4, RunWith({file}, {"/bin/sh", "-c", "setsid -f sleep 5; sleep 0.2; exit 4"}));
    EXPECT_THAT(output, testing::MatchesRegex("Vexcor: sleep \\(process [0-9]+\\): has detached "
                                              "itself and runs on without the fonts\n"));
    ExpectNothingActive();
}

// From the start to beyond the end of the command: a kill may come before, in the middle of and
// after each step.
TEST_F(WithTest, WhateverMomentItIsKilledAtTheNextProgramDeactivatesTheFonts)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans DejaVuSerif DejaVuSansMono");
    (void)OpenServices();
    int active = 0;
    int inactive = 0;
    for (int milliseconds = 0; milliseconds < 160; milliseconds += 2) {
        const auto with = StartWith(file, "sleep 0.02");
        Sleep(milliseconds);
        with->Send(SIGKILL);
        (void)with->Wait();  // it may have ended before
        ++(OpenServices().activation.GetActive().empty() ? inactive : active);
        ASSERT_EQ(0, Run({"repair"})) << output;
        ASSERT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty()) << milliseconds;
        ASSERT_THAT(OpenServices().activation.GetActive(), IsEmpty()) << milliseconds;
        ASSERT_THAT(OpenServices().programs.ListGone(), IsEmpty()) << milliseconds;
    }
    EXPECT_LT(0, active);
    EXPECT_LT(0, inactive);
}

TEST_F(WithTest, TheDaemonDeactivatesWhatAKilledOneLeft)
{
    const auto daemon = StartDaemon();
    const auto with = StartWith(AddDocument("a.eps", "DejaVuSans"), "echo on; sleep 2");
    ASSERT_TRUE(with->WaitForOutput("on"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    with->Send(SIGKILL);
    (void)with->Wait();
    // The time limit of the test ends this.
    while (!FontTestHome::ListOfOtherProcess().empty()) Sleep(20);
}

TEST_F(WithTest, TheCommandHasTheTerminalAndCanBeStopped)
{
    const std::string file = AddDocument("a.eps", "DejaVuSans");
    PseudoTerminal terminal("exec /bin/bash --norc -i");
    terminal.Type("PS1='ready> '; " VEXCOR_PROGRAM " with " + file +
                  " -- sh -c 'echo begin$((1)); read line; echo got:$line; exec tr a-z A-Z'\r");
    ASSERT_TRUE(terminal.WaitFor("begin1"));
    terminal.Type("text\r");
    EXPECT_TRUE(terminal.WaitFor("got:text"));
    terminal.Type("\x1a");  // Ctrl-Z
    EXPECT_TRUE(terminal.WaitFor("Stopped"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    terminal.Type("fg\r");
    terminal.Type("more\n");  // a shell in raw mode doesn't turn \r into it
    EXPECT_TRUE(terminal.WaitFor("MORE"));
    terminal.Type("\x03");  // Ctrl-C
    Sleep(500);
    terminal.Type("exit $?\r");
    EXPECT_EQ(130, terminal.Wait());
    ExpectNothingActive();
}

}  // namespace
