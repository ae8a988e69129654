#include "IllustratorUtilities.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;

namespace {

class RunFont : public MessageTest {
protected:
    RunFont() { Start(); }
    int Get(const std::string& font, std::string& name)
    {
        return GetTextRunFaceStyle(ATE::ITextRange(host.NewRunReference(font)), name);
    }
};

TEST_F(RunFont, GivesThePostScriptName)
{
    std::string name = "before";
    EXPECT_EQ(Get("A-Bold", name), 0);
    EXPECT_EQ(name, "A-Bold");
    EXPECT_TRUE(HasTrace("GetTextRunFaceStyle(..., 'A-Bold') returning 0"));
}

TEST_F(RunFont, AsksTheFontSuiteWithAKeyOf0AndABufferOf256)
{
    std::string name;
    EXPECT_EQ(Get("A", name), 0);
    EXPECT_THAT(host.Calls("AIFontSuite"),
                ElementsAre("AIFontSuite.FontKeyFromFontRef(font A, key null)",
                            "AIFontSuite.GetPostScriptFontName(font A, 256)"));
    EXPECT_THAT(host.Calls("ATE CharFeatures.GetFont"),
                ElementsAre("ATE CharFeatures.GetFont(false)"));
}

TEST_F(RunFont, LongNameIsCutToTheBuffer)
{
    std::string name;
    EXPECT_EQ(Get(std::string(256, 'x'), name), 0);
    EXPECT_EQ(name, std::string(255, 'x'));
}

TEST_F(RunFont, FailedKeyIsTheResultAndLeavesTheName)
{
    host.FailCall("AIFontSuite.FontKeyFromFontRef", 1, 4711);
    std::string name = "before";
    EXPECT_EQ(Get("A", name), 4711);
    EXPECT_EQ(name, "before");
    EXPECT_TRUE(HasTrace("GetTextRunFaceStyle(..., 'before') returning 4711"));
    EXPECT_FALSE(HasTraceBeginningWith("ERROR:  throwing"));
}

TEST_F(RunFont, FailedNameIsTheResultAndLeavesTheName)
{
    host.FailCall("AIFontSuite.GetPostScriptFontName", 1, -9);
    std::string name = "before";
    EXPECT_EQ(Get("A", name), -9);
    EXPECT_EQ(name, "before");
}

TEST_F(RunFont, TextEngineCodesAreTheResult)
{
    for (const char* const operation :
         {"ATE TextRange.GetUniqueCharFeatures", "ATE CharFeatures.GetFont"}) {
        host.FailCall(operation, 1, 4711);
        std::string name = "before";
        EXPECT_EQ(Get("A", name), 4711) << operation;
        EXPECT_EQ(name, "before");
    }
}

}  // namespace
