#include "commands/FontsReport.h"

#include <gtest/gtest.h>

using namespace headless;

namespace {

FontsReport MakeReport()
{
    FontsReport report;
    report.path = "a.ai";
    report.isRead = true;
    report.kind = "ai";
    report.reader = "native";
    report.note = "cut off";
    report.creator = "somebody";
    report.isTemplate = true;
    report.frames = 2;
    report.stories = 1;
    report.runs = 3;
    report.fonts = {{"A", false}, {"B", true}};
    report.linkedDocuments = {"/p.png", "/p.png"};
    return report;
}

}  // namespace

TEST(FontsReport, IsWrittenAsJsonOnOneLine)
{
    EXPECT_EQ(R"({"path":"a.ai","status":"read","error":"","kind":"ai","reader":"native",)"
              R"("note":"cut off","creator":"somebody","template":true,"frames":2,"stories":1,)"
              R"("runs":3,"documentFonts":[{"PostScriptName":"A","listed":false},)"
              R"({"PostScriptName":"B","listed":true}],"fonts":[{"PostScriptName":"A",)"
              R"("listed":false},{"PostScriptName":"B","listed":true}],)"
              R"("linkedDocuments":["/p.png","/p.png"]})",
              WriteFontsReportAsJson(MakeReport()));
}

TEST(FontsReport, IsReadBackFromJson)
{
    const std::string json = WriteFontsReportAsJson(MakeReport());
    EXPECT_EQ(json, WriteFontsReportAsJson(ReadFontsReport(json)));
}

TEST(FontsReport, IsWrittenAsATable)
{
    EXPECT_EQ(
        "a.ai: ai (native), 2 fonts, template\n"
        "    A\n"
        "    B  listed\n"
        "    placed file: /p.png\n"
        "    placed file: /p.png\n"
        "    note: cut off\n",
        WriteFontsReportAsTable(MakeReport()));
}

TEST(FontsReport, WritesAFailureAsOneLine)
{
    FontsReport report;
    report.path = "b\n.ai";
    report.error = "no such file";
    EXPECT_EQ("b?.ai: failed: no such file\n", WriteFontsReportAsTable(report));
}
