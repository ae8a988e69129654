#include <filesystem>

#include "SimulationFixture.h"
#include "application/ExitStatus.h"

using testing::HasSubstr;

// How a simulation is played: its world, its lives and its exit status.
class SimulationScript : public SimulationFixture {};

TEST_F(SimulationScript, ReadsTheDocumentsOfTheScript)
{
    const int status = Play(
        "document a.ai fonts=A-Regular,B-Bold placed=p.eps\ndocument p.eps\nactive A-Regular\n"
        "open a.ai\nexpect documents 1\nexpect font A-Regular active\nexpect font B-Bold missing\n"
        "active A-Regular B-Bold\nexpect font B-Bold activated\nexpect placed p.eps\n"
        "text Default-Regular\nexpect font Default-Regular default\nsave n.ai\nclose\n"
        "open n.ai\nexpect font B-Bold active\nexpect file n.ai\nvanish n.ai\n"
        "expect no file n.ai\n",
        "subscribes-all");
    EXPECT_EQ(0, status) << errors;
    EXPECT_FALSE(std::filesystem::exists(folder + "/n.ai")) << "files are of the simulation";
}

TEST_F(SimulationScript, AFileThatCannotBeOpenedOpensNothing)
{
    EXPECT_EQ(0, Play("document a.ai unreadable\nopen a.ai\nopen none.ai\nexpect documents 0"));
    EXPECT_THAT(errors, HasSubstr("headless-host: a.ai: damaged\n"));
    EXPECT_THAT(errors, HasSubstr("headless-host: none.ai: "));
}

TEST_F(SimulationScript, AnExceptionThatLeavesThePluginIsABrokenRule)
{
    Fail(headless::kPluginBrokeRule,
         "rule 301: AI Notifier/AI Notify: an exception leaves the plug-in",
         "document a.ai\nopen a.ai\nexpect documents 1", "throws");
}

TEST_F(SimulationScript, ARefusalToStartMustBeExpected)
{
    Fail(headless::kNotAsExpected, "the plug-in does not run: Missing PluginCore", "start",
         "refuses-to-start");
    Pass("expect refused", "refuses-to-start");
    Pass("expect refused Missing", "refuses-to-start");
    Pass("expect refused ./somewhere", "refuses-to-start");
    Pass("allow refusal\nstart", "refuses-to-start");
    Fail(headless::kNotAsExpected,
         "line 2: expected an alert with \"Other\", found 1 alerts without it",
         "expect refused Other", "refuses-to-start");
}

TEST_F(SimulationScript, APluginWithoutPluginMainIsABrokenRule)
{
    EXPECT_EQ(headless::kPluginBrokeRule, Play("new\nexpect documents 1\ntick", "no-entry"));
    EXPECT_THAT(errors, HasSubstr("headless-host: session: rule 101: "));
    EXPECT_THAT(errors, HasSubstr("has no PluginMain"));
}

TEST_F(SimulationScript, StartsThePluginWithTheFirstLineThatNeedsIt)
{
    Pass("expect calls send 1", "meets-faults");
    Pass("lack-suite 'AI Document Suite'\nstart\nexpect refused");
    Pass("new\nlack-suite 'AI Document Suite'\nsend Test Suite\nexpect answer 0");
}

TEST_F(SimulationScript, MenusRemainAfterARestartAndNotifiersAndTimersGo)
{
    EXPECT_EQ(0, Play("restart\nstart\nexpect unique registrations\nshow menu", "subscribes-all"))
        << errors;
    const size_t first = output.find("Plain");
    ASSERT_NE(std::string::npos, first) << output;
    EXPECT_NE(std::string::npos, output.find("Plain", first + 1)) << "one of each life";
}

TEST_F(SimulationScript, ARestartEndsTheScriptWithASecondShutdown)
{
    ASSERT_EQ(0, Play("restart", "meets-faults", "--journal journal")) << errors;
    const std::string journal = ReadFile("journal");
    size_t shutdowns = 0;
    for (size_t at = 0; (at = journal.find("\"Shutdown\"", at)) != std::string::npos; ++at) {
        ++shutdowns;
    }
    EXPECT_EQ(2U, shutdowns) << "a message and its answer";
}

TEST_F(SimulationScript, DuringPerformsALineInTheMiddleOfACall)
{
    Pass("new\nduring GetDocumentModified new\nsend Test Suite\nexpect documents 2");
    Pass("during GetSocketPort new\nsend Test Core\nexpect documents 1");
    Pass(
        "new\nduring GetDocumentModified new\nsend Test Suite\nsend Test Suite\n"
        "expect documents 2");
    Pass("expect documents 0\nduring GetDocumentModified new\nexpect documents 0");
}

TEST_F(SimulationScript, DuringCanBeNested)
{
    Pass(
        "new\nduring GetDocumentModified during GetSocketPort new\nsend Test Core\n"
        "expect documents 1\nsend Test Suite\nexpect documents 1\nsend Test Core\n"
        "expect documents 2");
    Pass(
        "new\nduring GetDocumentModified send Test Core\nduring GetSocketPort new\n"
        "send Test Suite\nexpect documents 2");
}

TEST_F(SimulationScript, DuringWorksInTheShutdown)
{
    Fail(headless::kNotAsExpected,
         "line 3: expect documents 9: expected number of documents 9, found 0",
         "new\nduring ReleaseSuite expect documents 9");
    Pass("new\nduring ReleaseSuite expect documents 0");
    std::ofstream(folder + "/plain") << "new\nduring ReleaseSuite expect documents 9\n";
    EXPECT_EQ(0, RunProgram("script plain", "meets-faults")) << "the lines are over: " << errors;
}

TEST_F(SimulationScript, AnUnmetExpectationOfDuringIsReported)
{
    Fail(headless::kNotAsExpected,
         "line 4: expect documents 9: expected number of documents 9, found 1",
         "new\nduring GetDocumentModified expect documents 9\nsend Test Suite");
}

TEST_F(SimulationScript, AnUnmetExpectationOfDuringIsReportedWithoutASimulationToo)
{
    std::ofstream(folder + "/plain")
        << "new\nduring GetDocumentModified expect documents 9\nsend Test Suite\n";
    EXPECT_EQ(headless::kNotAsExpected, RunProgram("script plain", "meets-faults"));
    EXPECT_EQ(
        "headless-host: plain:3: expect documents 9: expected number of documents 9, found 1\n",
        errors);
}

TEST_F(SimulationScript, FilesOutsideOfItsFolderAreKept)
{
    const std::string outside = folder + "/outside.ai";
    std::ofstream(outside) << "kept";
    const std::string problem = outside + ": is outside of the simulation's folder";
    for (const std::string action : {"document", "vanish"}) {
        Fail(headless::kWrongUse, "line 2: " + action + ": " + problem, action + " " + outside);
    }
    Fail(headless::kWrongUse, "line 3: save: " + problem, "new\nsave " + outside);
    Fail(headless::kWrongUse, "line 2: document: ../a.ai: is outside of the simulation's folder",
         "document ../a.ai");
    // A link to the installed file.
    const std::string link = "Vexcor/PluginFiles/PluginCore.framework/Resources/Info.plist";
    Fail(headless::kWrongUse,
         "line 2: document: " + link + ": is outside of the simulation's folder",
         "document " + link);
    EXPECT_EQ("kept", ReadFile("outside.ai"));
    Pass("document none/../a.ai\nopen a.ai\nexpect documents 1\nvanish ./a.ai");
}

TEST_F(SimulationScript, ItsFolderMayBeReachedOverALink)
{
    before = "mkdir temporary; ln -s temporary link; TMPDIR=$PWD/link";
    Pass("document a.ai\nopen a.ai\nsave b.ai\nopen a.ai\nexpect documents 2");
}

TEST_F(SimulationScript, ALineOfDuringThatIsNotPossibleIsLeftOut)
{
    Pass("new\nduring GetDocumentModified current 7\nsend Test Suite");
}

TEST_F(SimulationScript, ExpectCallIsFoundHoweverItIsWritten)
{
    Pass("start\nexpect  call AcquireSuite");
    Pass("start\n expect \"calls\" AcquireSuite 1");
}

TEST_F(SimulationScript, AnUnreadableScriptIsWrongUse)
{
    EXPECT_EQ(headless::kWrongUse, RunProgram("script absent", "meets-faults"));
    EXPECT_EQ("headless-host: absent: no such file\n", errors);
}
