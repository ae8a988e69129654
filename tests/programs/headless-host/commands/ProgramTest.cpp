#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ProgramFixture.h"
#include "application/ExitStatus.h"

using testing::HasSubstr;

// The closed notifier when it is sent; its subscription has other arguments.
constexpr const char* kClosedSent =
    R"("selector":"AI Notify","type":"AI Document Closed Notifier")";

class Program : public ProgramFixture {
protected:
    int Run(const std::string& arguments, const std::string& plugin = "well-behaved")
    {
        return RunProgram(arguments, plugin);
    }

    // An EPS file that uses one font.
    void WriteEps(const std::string& name, const std::string& font) const
    {
        std::ofstream(folder + "/" + name)
            << "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n%%DocumentFonts: " << font
            << "\n%%DocumentNeededResources: font " << font << "\n%%EndComments\n%%EOF\n";
    }
};

TEST_F(Program, ReportsAMissingFont)
{
    WriteEps("a.eps", "Surely-NotInstalled-Font");
    EXPECT_EQ(headless::kFontMissing, Run("open a.eps --json")) << errors;
    const auto line = nlohmann::json::parse(output);
    EXPECT_EQ("a.eps", line["path"]);
    EXPECT_EQ("opened", line["status"]);
    EXPECT_EQ("eps", line["kind"]);
    EXPECT_EQ("Surely-NotInstalled-Font", line["documentFonts"][0]["PostScriptName"]);
    EXPECT_EQ("missing", line["documentFonts"][0]["state"]);
    EXPECT_EQ("dismissed", line["missingFontsDialog"]);
}

TEST_F(Program, ContinuesAfterFilesThatFail)
{
    WriteEps("good.eps", "Surely-NotInstalled-Font");
    std::ofstream(folder + "/text.ai") << "no document at all";
    std::ofstream(folder + "/empty.pdf") << "";
    EXPECT_EQ(headless::kFileNotOpened, Run("open nowhere.ai . text.ai empty.pdf good.eps --json"));
    std::istringstream lines(output);
    std::vector<std::string> states;
    for (std::string line; std::getline(lines, line);) {
        const auto report = nlohmann::json::parse(line);
        states.push_back(report["status"]);
        EXPECT_EQ(report["error"] == "", report["status"] == "opened") << line;
    }
    EXPECT_THAT(states, testing::ElementsAre("failed", "failed", "failed", "failed", "opened"));
    EXPECT_THAT(errors, HasSubstr("headless-host: nowhere.ai: "));
}

TEST_F(Program, RefusesALargeFileOfZeros)
{
    std::ofstream(folder + "/zeros.ai") << "";
    std::filesystem::resize_file(folder + "/zeros.ai", 300U << 20);
    EXPECT_EQ(headless::kFileNotOpened, Run("open zeros.ai --json"));
    EXPECT_EQ("failed", nlohmann::json::parse(output)["status"]);
}

TEST_F(Program, RefusesAnUnknownOption)
{
    EXPECT_EQ(headless::kWrongUse, Run("open --no-such-option a"));
    EXPECT_THAT(errors, HasSubstr("--no-such-option"));
    EXPECT_EQ("", output);
}

TEST_F(Program, ReportsAModuleWithoutPluginMain)
{
    EXPECT_EQ(headless::kPluginNotLoaded, Run("open a.eps", "no-entry"));
    EXPECT_THAT(errors, HasSubstr("has no PluginMain"));
    EXPECT_EQ("", output);
}

TEST_F(Program, OpensNothingIfThePluginRefusesToStart)
{
    WriteEps("a.eps", "F");
    EXPECT_EQ(headless::kPluginNotLoaded, Run("open a.eps", "refuses-to-start"));
    EXPECT_THAT(errors, HasSubstr("alert: Missing PluginCore (./somewhere)"));
    EXPECT_THAT(errors, testing::EndsWith("hint: run 'Vexcor install' once\n"));
    EXPECT_EQ("", output);
}

TEST_F(Program, ReportsABrokenRule)
{
    WriteEps("a.eps", "F");
    EXPECT_EQ(headless::kPluginBrokeRule, Run("open a.eps", "leaks-suite"));
    EXPECT_THAT(errors, HasSubstr("headless-host: plug-in error: Unload: suite"));
}

TEST_F(Program, RunsACommandWhileTheDocumentIsOpen)
{
    WriteEps("a.eps", "F");
    EXPECT_EQ(headless::kFontMissing,
              Run("open a.eps --json --journal j --exec 'echo seen $DOCUMENT; grep -c "
                  "AI.Notify.*Closed " +
                  folder + "/j'"));
    EXPECT_THAT(errors, HasSubstr("seen " + folder + "/a.eps\n0\n"));
    EXPECT_THAT(ReadFile("j"), HasSubstr(kClosedSent));
}

TEST_F(Program, AnInterruptShutsDownInOrder)
{
    WriteEps("a.eps", "F");
    // The command's parent is the program.
    EXPECT_EQ(headless::kInterrupted,
              Run("open a.eps --journal j --keep-open 600 --exec 'kill -TERM $PPID; sleep 600'"));
    const std::string journal = ReadFile("j");
    EXPECT_THAT(journal, HasSubstr(kClosedSent));
    EXPECT_THAT(journal, HasSubstr("\"unloaded\""));
}

TEST_F(Program, ReportsAJournalThatCannotBeWritten)
{
    EXPECT_EQ(headless::kWrongUse, Run("open a.eps --journal core"));
    EXPECT_THAT(errors, HasSubstr("/core: "));
}

TEST_F(Program, AFullDiskIsReportedAsThat)
{
    WriteEps("a.eps", "Surely-NotInstalled-Font");
    const std::string reason = "cannot be written: No space left on device\n";
    EXPECT_EQ(headless::kFileNotOpened, Run("open a.eps --journal /dev/full"));
    EXPECT_EQ("headless-host: /dev/full: " + reason, errors);
    outputFile = "/dev/full";
    EXPECT_EQ(headless::kFileNotOpened, Run("open a.eps"));
    EXPECT_EQ("headless-host: standard output: " + reason, errors);
}

TEST_F(Program, FrameworksMustBeAFolder)
{
    std::ofstream(folder + "/file") << "";
    for (const std::string name : {"none", "file"}) {
        EXPECT_EQ(headless::kWrongUse, Run("open a.eps --frameworks " + name));
        EXPECT_EQ("headless-host: --frameworks: " + folder + "/" + name + ": " +
                      (name == "file" ? "Not a directory" : "No such file or directory") + "\n",
                  errors);
    }
    EXPECT_EQ(headless::kWrongUse, Run("open a.eps --frameworks"));
    EXPECT_THAT(errors, HasSubstr("--frameworks: "));
}

TEST_F(Program, AHangUpThatTheParentIgnoresDoesNotEndTheHost)
{
    WriteEps("a.eps", "Surely-NotInstalled-Font");
    before = "trap '' HUP;";
    EXPECT_EQ(headless::kFontMissing, Run("open a.eps --exec 'kill -HUP $PPID'")) << errors;
}

TEST_F(Program, TheStartDeletesWhatAKilledSaveLeft)
{
    (void)scratch.Write("home/.local/state/headless-host/saves/save-abcdef", folder + "/letters");
    const std::string left = scratch.Write("letters/.save-abcdef-123456", "half a document");
    WriteEps("a.eps", "Surely-NotInstalled-Font");
    (void)Run("open a.eps");
    EXPECT_FALSE(std::filesystem::exists(left));
    EXPECT_THAT(errors, HasSubstr("headless-host: " + left + ": deleted; a save"));
}
