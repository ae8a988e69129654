#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "docfonts/analysis/FontSearch.h"
#include "docfonts/report/ReportJson.h"
#include "docfonts/report/ReportWords.h"
#include "docfonts/table/TableReport.h"

using namespace docfonts;
using testing::Not;

namespace {

UsedFont MakeFont(const std::string& name, FontState state)
{
    UsedFont font;
    font.postScriptName = name;
    font.family = "F";
    font.style = "S";
    font.state = state;
    font.faceIndex = 65537;
    font.frames = 1;
    font.runs = 2;
    font.characters = 3;
    font.embedding = Embedding::kSubset;
    font.words = "words";
    return font;
}

// A report in which every member differs from its default.
DocumentReport MakeReport()
{
    DocumentReport report;
    report.path = "a\xff\n.ai";
    report.format = "ai";
    report.reader = "native";
    report.note = "a note";
    report.creator = "a program";
    report.isTemplate = true;
    report.frames = 4;
    report.stories = 5;
    report.runs = 6;
    report.fonts = {MakeFont("Here", FontState::kInstalled), MakeFont("Lib", FontState::kInLibrary),
                    MakeFont("Near-Bold", FontState::kOtherStyle),
                    MakeFont("Gone", FontState::kMissing)};
    report.fonts[0].file = "/f/here.ttf";
    report.fonts[2].otherStyle = "Near-Regular";
    report.fonts[3].isListed = true;
    report.fonts[3].embedding = Embedding::kUnknown;
    report.placed = {{"x\xff.jpg", PlacedState::kFound, "d/x\xff.jpg"},
                     {"y.jpg", PlacedState::kMoved, "d/y.jpg"},
                     {"z\t.jpg", PlacedState::kMissing, ""}};
    DocumentReport placed;
    placed.path = "d/inner.eps";
    placed.format = "unknown";
    placed.error = "is empty";
    report.placedDocuments = {placed};
    return report;
}

}  // namespace

TEST(DocumentReport, IsUnpackedAsItWas)
{
    const std::string packed = PackReport(MakeReport());
    const DocumentReport report = UnpackReport(packed);
    EXPECT_EQ(packed, PackReport(report));
    EXPECT_EQ("a\xff\n.ai", report.path);
    EXPECT_EQ("d/x\xff.jpg", report.placed[0].foundAt);
    EXPECT_EQ("words", report.fonts[0].words);
    EXPECT_EQ(FontState::kOtherStyle, report.fonts[2].state);
    EXPECT_EQ(Embedding::kUnknown, report.fonts[3].embedding);
    EXPECT_EQ("is empty", report.placedDocuments[0].error);
    EXPECT_THROW((void)UnpackReport("rubbish"), nlohmann::json::exception);
    EXPECT_THROW((void)UnpackReport(packed.substr(0, packed.size() / 2)),
                 nlohmann::json::exception);
}

TEST(DocumentReport, IsWrittenAsJsonOnOneLine)
{
    const std::string text = WriteJson(MakeReport());
    EXPECT_THAT(text, Not(testing::HasSubstr("\n")));
    const auto line = nlohmann::json::parse(text);
    EXPECT_EQ("a\xef\xbf\xbd\n.ai", line["path"]);
    EXPECT_EQ("read", line["status"]);
    EXPECT_EQ("only as another style", line["documentFonts"][2]["state"]);
    EXPECT_EQ("subset", line["documentFonts"][0]["embedded"]);
    EXPECT_EQ("moved", line["placedFiles"][1]["state"]);
    EXPECT_EQ("failed", line["placedDocuments"][0]["status"]);
    EXPECT_EQ(3U, line["linkedDocuments"].size());
    EXPECT_FALSE(line["documentFonts"][0].contains("words"));
}

TEST(DocumentReport, IsWrittenAsATableWithoutControlCharacters)
{
    EXPECT_EQ(
        "a\xff?.ai: ai (native), 4 fonts, template\n"
        "    Here       installed                             "
        "1 frame, 2 runs, 3 characters, embedded as a subset  /f/here.ttf\n"
        "    Lib        in the library                        "
        "1 frame, 2 runs, 3 characters, embedded as a subset\n"
        "    Near-Bold  only as another style (Near-Regular)  "
        "1 frame, 2 runs, 3 characters, embedded as a subset\n"
        "    Gone       missing                               listed\n"
        "    placed file: x\xff.jpg  found\n"
        "    placed file: y.jpg  moved to d/y.jpg\n"
        "    placed file: z?.jpg  missing\n"
        "    note: a note\n"
        "    placed document: d/inner.eps: failed: is empty\n",
        WriteTable(MakeReport()));
}

TEST(DocumentReport, KeepsWhatIsMissing)
{
    DocumentReport report = MakeReport();
    EXPECT_TRUE(LacksAnything(report));
    KeepMissing(report);
    ASSERT_EQ(2U, report.fonts.size());
    EXPECT_EQ("Near-Bold", report.fonts[0].postScriptName);
    ASSERT_EQ(1U, report.placed.size());
    EXPECT_EQ(1U, report.placedDocuments.size());
    report.fonts.clear();
    report.placed.clear();
    EXPECT_FALSE(LacksAnything(report));
}

TEST(FamilyKey, IsTheSameForTheStylesOfAFamily)
{
    for (const char* name : {"TimesNewRomanPSMT", "TimesNewRomanPS-BoldMT", "Times_NewRoman-X"}) {
        EXPECT_EQ("timesnewroman", GetFamilyKey(name)) << name;
    }
    EXPECT_EQ(GetFamilyKey("Arial-BoldMT"), GetFamilyKey("ArialMT"));
    EXPECT_NE(GetFamilyKey("DejaVuSans"), GetFamilyKey("DejaVuSansMono"));
    for (const char* name : {"MT", "PS", "", "-", "-Bold"}) (void)GetFamilyKey(name);
    EXPECT_EQ("mt", GetFamilyKey("MT"));
}
