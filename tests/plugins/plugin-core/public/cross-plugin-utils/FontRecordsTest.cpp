#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CrossPluginUtils.h"
#include "RecordingTrace.h"

namespace {

using namespace CrossPluginUtils;

SFontRecord Font(const std::string& name)
{
    SFontRecord record;
    record["PostScriptName"] = name;
    return record;
}

TEST(CreateFontDataForOneFont, SetsTheName)
{
    SFontRecord record;
    CreateFontDataForOneFont("ExampleSerif-Bold", record);
    EXPECT_EQ(Font("ExampleSerif-Bold"), record);
}

TEST(CreateFontDataForOneFont, ReplacesTheNameAndKeepsOtherPairs)
{
    SFontRecord record = Font("Old");
    record["Version"] = "2";
    CreateFontDataForOneFont("New", record);
    EXPECT_EQ("New", record["PostScriptName"]);
    EXPECT_EQ("2", record["Version"]);
    EXPECT_EQ(2U, record.size());
}

TEST(CreateFontDataForOneFont, TracesTheName)
{
    ClearTraces();
    SFontRecord record;
    CreateFontDataForOneFont("ExampleSerif-Bold", record);
    EXPECT_THAT(TraceTexts(), testing::Contains(testing::HasSubstr("ExampleSerif-Bold")));
}

TEST(AddFontToArray, SkipsADuplicateIfAskedToCheck)
{
    FontList fonts;
    EXPECT_TRUE(AddFontToArray(Font("A"), true, fonts));
    EXPECT_FALSE(AddFontToArray(Font("A"), true, fonts));
    EXPECT_EQ(FontList{Font("A")}, fonts);
}

TEST(AddFontToArray, KeepsADuplicateIfNotAskedToCheck)
{
    FontList fonts;
    EXPECT_TRUE(AddFontToArray(Font("A"), false, fonts));
    EXPECT_TRUE(AddFontToArray(Font("A"), false, fonts));
    EXPECT_EQ(2U, fonts.size());
}

TEST(AddFontToArray, FindsADuplicateAnywhereInTheList)
{
    const FontList before = {Font("A"), Font("B"), Font("C")};
    for (const SFontRecord& record : before) {
        FontList fonts = before;
        EXPECT_FALSE(AddFontToArray(record, true, fonts));
        EXPECT_EQ(before, fonts);
    }
}

TEST(AddFontToArray, AppendsAtTheEnd)
{
    FontList fonts = {Font("B")};
    EXPECT_TRUE(AddFontToArray(Font("A"), true, fonts));
    EXPECT_EQ((FontList{Font("B"), Font("A")}), fonts);
}

TEST(AddFontToArray, IsCaseSensitive)
{
    FontList fonts;
    EXPECT_TRUE(AddFontToArray(Font("A-Bold"), true, fonts));
    EXPECT_TRUE(AddFontToArray(Font("a-bold"), true, fonts));
}

TEST(AddFontToArray, ComparesLengthAndEveryByte)
{
    FontList fonts = {Font("Name")};
    EXPECT_TRUE(AddFontToArray(Font("NameX"), true, fonts));
    EXPECT_TRUE(AddFontToArray(Font("Nam"), true, fonts));
    EXPECT_TRUE(AddFontToArray(Font(std::string("Name\0X", 6)), true, fonts));
}

TEST(AddFontToArray, ComparesOnlyTheName)
{
    SFontRecord other = Font("A");
    other["Version"] = "2";
    FontList fonts = {Font("A")};
    EXPECT_FALSE(AddFontToArray(other, true, fonts));
}

TEST(AddFontToArray, TreatsAMissingNameAsEmpty)
{
    FontList fonts;
    EXPECT_TRUE(AddFontToArray(SFontRecord(), true, fonts));
    EXPECT_FALSE(AddFontToArray(SFontRecord(), true, fonts));
    EXPECT_FALSE(AddFontToArray(Font(""), true, fonts));
    EXPECT_EQ(FontList{SFontRecord()}, fonts);
}

TEST(AddFontToArray, AddsAnEmptyNameToARecordWithoutOne)
{
    FontList fonts = {Font("A")};
    EXPECT_TRUE(AddFontToArray(SFontRecord(), true, fonts));
    EXPECT_EQ((FontList{Font("A"), Font("")}), fonts);
}

TEST(ToJson, CopiesEveryPair)
{
    SFontRecord record = Font("A");
    record["Family"] = "F";
    json target = json::array({1, 2});
    to_json(target, record);
    EXPECT_EQ(R"({"Family":"F","PostScriptName":"A"})", target.dump());
}

TEST(ToJson, TurnsAnEmptyRecordIntoAnEmptyObject)
{
    json target;
    to_json(target, SFontRecord());
    EXPECT_TRUE(target.is_object());
    EXPECT_TRUE(target.empty());
}

TEST(JSONStringRepresentation, HasBothMembersForEmptyLists)
{
    EXPECT_EQ(R"({"DocumentFonts":[],"LinkedDocuments":[]})", JSONStringRepresentation({}, {}));
}

TEST(JSONStringRepresentation, KeepsOrderAndRepeats)
{
    EXPECT_EQ(
        R"({"DocumentFonts":[{"PostScriptName":"B"},{"PostScriptName":"A"},)"
        R"({"PostScriptName":"B"}],"LinkedDocuments":["/z.psd","/a.ai","/z.psd"]})",
        JSONStringRepresentation({Font("B"), Font("A"), Font("B")}, {"/z.psd", "/a.ai", "/z.psd"}));
}

TEST(JSONStringRepresentation, IncludesTheOtherPairsOfARecord)
{
    SFontRecord record = Font("A");
    record["Version"] = "2";
    EXPECT_EQ(R"({"DocumentFonts":[{"PostScriptName":"A","Version":"2"}],"LinkedDocuments":[]})",
              JSONStringRepresentation({record}, {}));
}

TEST(JSONStringRepresentation, EscapesQuotesBackslashesAndControlCharacters)
{
    EXPECT_EQ(R"({"DocumentFonts":[{"PostScriptName":"A\"B"}],)"
              R"("LinkedDocuments":["C:\\x\n\u0001"]})",
              JSONStringRepresentation({Font("A\"B")}, {"C:\\x\n\x01"}));
}

TEST(JSONStringRepresentation, KeepsUTF8Unescaped)
{
    EXPECT_EQ("{\"DocumentFonts\":[],\"LinkedDocuments\":[\"/caf\xC3\xA9/logo.ai\"]}",
              JSONStringRepresentation({}, {"/caf\xC3\xA9/logo.ai"}));
}

TEST(JSONStringRepresentation, ThrowsForANameThatIsNotUTF8)
{
    EXPECT_THROW((void)JSONStringRepresentation({Font("caf\xE9")}, {}), json::type_error);
}

TEST(JSONStringRepresentation, ThrowsForAPathThatIsNotUTF8)
{
    EXPECT_THROW((void)JSONStringRepresentation({}, {"/caf\xE9"}), json::type_error);
}

TEST(BackgroundForegroundApp, WritesItsTwoTraceLines)
{
    ClearTraces();
    BackgroundForegroundApp();
    ASSERT_EQ(2U, Traces().size());
    EXPECT_EQ(1, Traces()[0].indentChange);
    EXPECT_EQ(-1, Traces()[1].indentChange);
    EXPECT_THAT(Traces()[0].text, testing::HasSubstr("BackgroundForegroundApp"));
    EXPECT_THAT(Traces()[1].text, testing::HasSubstr("BackgroundForegroundApp"));
}

}  // namespace
