#include "IllustratorUtilities.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;

namespace {

class RunFont : public MessageFixture {
protected:
    RunFont() { Start(); }
    int Get(const std::string& font, std::string& name)
    {
        return GetTextRunFaceStyle(ATE::ITextRange(host.NewRunReference(font)), name);
    }
};

TEST_F(RunFont, ReturnsThePostScriptName)
{
    std::string name = "before";
    EXPECT_EQ(0, Get("A-Bold", name));
    EXPECT_EQ("A-Bold", name);
    EXPECT_TRUE(HasTrace("GetTextRunFaceStyle(..., 'A-Bold') returning 0"));
}

TEST_F(RunFont, CallsTheFontSuiteWithANullKeyAndABufferOf256)
{
    std::string name;
    EXPECT_EQ(0, Get("A", name));
    EXPECT_THAT(host.Calls("AIFontSuite"),
                ElementsAre("AIFontSuite.FontKeyFromFontRef(font A, key null)",
                            "AIFontSuite.GetPostScriptFontName(font A, 256)"));
    EXPECT_THAT(host.Calls("ATE CharFeatures.GetFont"),
                ElementsAre("ATE CharFeatures.GetFont(false)"));
}

TEST_F(RunFont, CutsALongNameToTheBuffer)
{
    std::string name;
    EXPECT_EQ(0, Get(std::string(256, 'x'), name));
    EXPECT_EQ(std::string(255, 'x'), name);
}

TEST_F(RunFont, ReturnsAFailureToGetTheKeyAndKeepsTheName)
{
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 1, 4711);
    std::string name = "before";
    EXPECT_EQ(4711, Get("A", name));
    EXPECT_EQ("before", name);
    EXPECT_TRUE(HasTrace("GetTextRunFaceStyle(..., 'before') returning 4711"));
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  throwing"));
}

TEST_F(RunFont, ReturnsAFailureToGetTheNameAndKeepsTheName)
{
    host.FailCall("AIFontSuite.GetPostScriptFontName", 1, -9);
    std::string name = "before";
    EXPECT_EQ(-9, Get("A", name));
    EXPECT_EQ("before", name);
}

TEST_F(RunFont, ReturnsTheTextEnginesCode)
{
    for (const char* const operation :
         {"ATE TextRange.GetUniqueCharFeatures", "ATE CharFeatures.GetFont"}) {
        host.FailCall(operation, 1, 4711);
        std::string name = "before";
        EXPECT_EQ(4711, Get("A", name)) << operation;
        EXPECT_EQ("before", name);
    }
}

}  // namespace
