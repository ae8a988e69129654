#include <gtest/gtest.h>

#include "DefaultFontsHost.h"
#include "FreshProcess.h"

namespace {

json Fonts(const std::vector<std::string>& names)
{
    json fonts = json::array();
    for (const std::string& name : names) fonts.push_back({{"PostScriptName", name}});
    return fonts;
}

// Runs `body` in a new process in which ExampleSans is the default font and the list is made.
template <class Body>
void WithExampleSans(Body body)
{
    InFreshProcess([&] {
        DefaultFontsHost host("ExampleSans-Regular");
        EXPECT_FALSE(IsDefault("Other"));
        ClearTraces();
        body();
    });
}

// Expects the result and the text afterwards, and the exit trace.
void ExpectText(const std::string& before, bool removed, const std::string& after)
{
    std::string text = before;
    EXPECT_EQ(removed, RemoveIllustratorDefaultFonts(text));
    EXPECT_EQ(after, text);
    ASSERT_FALSE(Traces().empty());
    EXPECT_EQ(removed ? "Exiting RemoveIllustratorDefaultFonts() with result 1"
                      : "Exiting RemoveIllustratorDefaultFonts() with result 0",
              Traces().back().text);
    EXPECT_EQ(-1, Traces().back().indentChange);
}

TEST(RemoveIllustratorDefaultFonts, RemovesThemFromAnArrayStartingAtItsEnd)
{
    WithExampleSans([] {
        json fonts = Fonts({"ExampleSans", "Kept-Bold", "ExampleSans-Bold"});
        EXPECT_TRUE(RemoveIllustratorDefaultFonts(fonts));
        EXPECT_EQ(Fonts({"Kept-Bold"}), fonts);
        EXPECT_EQ(
            (std::vector<std::string>{
                "Entering RemoveIllustratorDefaultFonts(with an array of 3 fonts)",
                "PostScriptName is ExampleSans-Bold",
                "RemoveIllustratorDefaultFonts() removing 'ExampleSans-Bold' from fonts needing "
                "resolution.",
                "PostScriptName is Kept-Bold", "PostScriptName is ExampleSans",
                "RemoveIllustratorDefaultFonts() removing 'ExampleSans' from fonts needing "
                "resolution.",
                "Exiting RemoveIllustratorDefaultFonts(with an array of 1 fonts)"}),
            TraceTexts());
    });
}

TEST(RemoveIllustratorDefaultFonts, CanEmptyAnArray)
{
    WithExampleSans([] {
        json fonts = Fonts({"ExampleSans", "ExampleSans"});
        EXPECT_TRUE(RemoveIllustratorDefaultFonts(fonts));
        EXPECT_EQ(json::array(), fonts);
    });
}

TEST(RemoveIllustratorDefaultFonts, KeepsAnArrayWithoutDefaultFonts)
{
    WithExampleSans([] {
        json fonts = Fonts({"B", "A", "B"});
        EXPECT_FALSE(RemoveIllustratorDefaultFonts(fonts));
        EXPECT_EQ(Fonts({"B", "A", "B"}), fonts);
        json empty = json::array();
        EXPECT_FALSE(RemoveIllustratorDefaultFonts(empty));
        EXPECT_EQ(json::array(), empty);
    });
}

TEST(RemoveIllustratorDefaultFonts, RemovesThemFromADocumentObjectAndKeepsTheRest)
{
    WithExampleSans([] {
        json report = {{"DocumentFonts", Fonts({"ExampleSans", "Kept"})},
                       {"LinkedDocuments", Fonts({"ExampleSans"})},
                       {"Other", "ExampleSans"}};
        EXPECT_TRUE(RemoveIllustratorDefaultFonts(report));
        EXPECT_EQ(Fonts({"Kept"}), report["DocumentFonts"]);
        EXPECT_EQ(Fonts({"ExampleSans"}), report["LinkedDocuments"]);
        EXPECT_EQ("ExampleSans", report["Other"]);
    });
}

TEST(RemoveIllustratorDefaultFonts, SearchesAnObjectInAnObject)
{
    WithExampleSans([] {
        json fonts = {{"DocumentFonts", {{"DocumentFonts", Fonts({"ExampleSans", "Kept"})}}}};
        EXPECT_TRUE(RemoveIllustratorDefaultFonts(fonts));
        EXPECT_EQ((json{{"DocumentFonts", {{"DocumentFonts", Fonts({"Kept"})}}}}), fonts);
    });
}

TEST(RemoveIllustratorDefaultFonts, AddsANullMemberToAnObjectWithoutFonts)
{
    WithExampleSans([] {
        json report = {{"LinkedDocuments", json::array()}};
        EXPECT_FALSE(RemoveIllustratorDefaultFonts(report));
        ASSERT_TRUE(report.contains("DocumentFonts"));
        EXPECT_TRUE(report["DocumentFonts"].is_null());
        EXPECT_EQ(2U, report.size());
    });
}

TEST(RemoveIllustratorDefaultFonts, IgnoresValuesOfOtherTypes)
{
    WithExampleSans([] {
        for (const json& kind : {json(), json(7), json(true), json("ExampleSans")}) {
            json value = kind;
            EXPECT_FALSE(RemoveIllustratorDefaultFonts(value));
            EXPECT_EQ(kind, value);
        }
        json report = {{"DocumentFonts", "ExampleSans"}};
        EXPECT_FALSE(RemoveIllustratorDefaultFonts(report));
        EXPECT_EQ("ExampleSans", report["DocumentFonts"]);
    });
}

TEST(RemoveIllustratorDefaultFonts, ThrowsForAnElementThatIsNoObject)
{
    WithExampleSans([] {
        json fonts = json::array({"ExampleSans"});
        EXPECT_THROW((void)RemoveIllustratorDefaultFonts(fonts), json::type_error);
        std::string text = R"(["ExampleSans"])";
        EXPECT_THROW((void)RemoveIllustratorDefaultFonts(text), json::type_error);
        EXPECT_EQ(R"(["ExampleSans"])", text);
    });
}

TEST(RemoveIllustratorDefaultFonts, ThrowsForANameThatIsNoString)
{
    WithExampleSans([] {
        json missing = json::array({json::object()});
        EXPECT_THROW((void)RemoveIllustratorDefaultFonts(missing), json::exception);
        json number = json::array({{{"PostScriptName", 7}}});
        EXPECT_THROW((void)RemoveIllustratorDefaultFonts(number), json::exception);
    });
}

TEST(RemoveIllustratorDefaultFonts, RewritesTheTextInCompactForm)
{
    WithExampleSans([] {
        ExpectText(
            "{ \"LinkedDocuments\" : [ \"/caf\xC3\xA9.ai\" ],\n \"DocumentFonts\" : [ "
            "{\"PostScriptName\":\"ExampleSans-Bold\"}, {\"PostScriptName\":\"Kept\"} ] }",
            true,
            "{\"DocumentFonts\":[{\"PostScriptName\":\"Kept\"}],"
            "\"LinkedDocuments\":[\"/caf\xC3\xA9.ai\"]}");
    });
}

TEST(RemoveIllustratorDefaultFonts, AcceptsATextWithAnArray)
{
    WithExampleSans([] {
        ExpectText(R"([{"PostScriptName":"ExampleSans"},{"PostScriptName":"Kept"}])", true,
                   R"([{"PostScriptName":"Kept"}])");
    });
}

TEST(RemoveIllustratorDefaultFonts, DoesNotReformatATextWithoutDefaultFonts)
{
    WithExampleSans([] {
        for (const char* text :
             {R"({"DocumentFonts":[]})", "null", " 7 ", R"({ "Z" : 1, "A" : 2 })", "[ ]",
              R"({ "LinkedDocuments":[], "DocumentFonts":[ {"PostScriptName":"Kept"} ] })"}) {
            ExpectText(text, false, text);
        }
    });
}

TEST(RemoveIllustratorDefaultFonts, ThrowsForAMalformedText)
{
    WithExampleSans([] {
        for (const std::string malformed : {"", "rubbish", "[", "/* c */ []"}) {
            std::string text = malformed;
            EXPECT_THROW((void)RemoveIllustratorDefaultFonts(text), json::parse_error);
            EXPECT_EQ(malformed, text);
        }
    });
}

}  // namespace
