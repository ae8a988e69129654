#include "application/OpenReport.h"

#include <gtest/gtest.h>

#include "console/Console.h"

using namespace headless;

namespace {

OpenReport MakeReport()
{
    OpenReport report;
    report.path = "a.ai";
    report.opened = true;
    report.kind = "ai";
    report.reader = "native";
    report.note = "cut off";
    report.frames = 1;
    report.runs = 2;
    report.fonts = {{"A", FontState::kDefault},
                    {"Bb", FontState::kActive},
                    {"C", FontState::kActivated},
                    {"D", FontState::kMissing, true}};
    report.linkedDocuments = {"/p.png"};
    report.dialog = DialogOutcome::kShown;
    report.elapsedMs = 12;
    return report;
}

}  // namespace

TEST(OpenReport, IsWrittenAsJsonOnOneLine)
{
    EXPECT_EQ(R"({"path":"a.ai","status":"opened","error":"","kind":"ai","reader":"native",)"
              R"("note":"cut off",)"
              R"("frames":1,"runs":2,"documentFonts":[)"
              R"({"PostScriptName":"A","listed":false,"state":"default"},)"
              R"({"PostScriptName":"Bb","listed":false,"state":"active"},)"
              R"({"PostScriptName":"C","listed":false,"state":"activated"},)"
              R"({"PostScriptName":"D","listed":true,"state":"missing"}],)"
              R"("linkedDocuments":["/p.png"],"missingFontsDialog":"shown","elapsedMs":12})",
              WriteReportAsJson(MakeReport()));
}

TEST(OpenReport, HasTheSameMembersForAFailedFile)
{
    OpenReport report;
    report.path = "b\xff";
    report.kind = "unknown";
    report.error = "no such file";
    const auto line = nlohmann::json::parse(WriteReportAsJson(report));
    EXPECT_EQ(line.size(), nlohmann::json::parse(WriteReportAsJson(MakeReport())).size());
    EXPECT_EQ("failed", line["status"]);
    EXPECT_EQ("none", line["missingFontsDialog"]);
    EXPECT_TRUE(line["documentFonts"].empty());
}

TEST(OpenReport, IsWrittenAsATable)
{
    EXPECT_EQ(
        "a.ai: ai (native), 1 text frame, 2 runs\n"
        "    A   host default\n"
        "    Bb  already active\n"
        "    C   activated now\n"
        "    D   missing, listed\n"
        "    placed file: /p.png\n"
        "    note: cut off\n"
        "    missing-fonts dialog: shown\n",
        WriteReportAsTable(MakeReport()));
}

TEST(OpenReport, ControlCharactersAreReplaced)
{
    EXPECT_EQ("a?[2J?b", console::MakePrintable("a\033[2J\nb"));
}
