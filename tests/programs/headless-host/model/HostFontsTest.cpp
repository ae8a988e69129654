#include "HostFixture.h"

class HostFontsTest : public HostFixture {
protected:
    const AIFontSuite& suite = Acquire<AIFontSuite>("AI Font Suite", 1006);
};

TEST_F(HostFontsTest, HasADefaultForEachScript)
{
    fonts.defaults = {{"ja", "Gothic-Regular"}, {"ar", "Naskh"}};
    for (const AIFaceScript script :
         {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16, 17, 25, 29, 32, 81, 85}) {
        AIFontKey key = nullptr;
        char name[128] = {};
        EXPECT_EQ(kHostSuccess, suite.GetDefaultFontForScript(script, &key)) << script;
        EXPECT_EQ(kHostSuccess, suite.GetPostScriptFontName(key, name, 128));
        const std::string expected = script == 1   ? "Gothic-Regular"
                                     : script == 4 ? "Naskh"
                                                   : "Default-Regular";
        EXPECT_EQ(expected, name) << script;
    }
    EXPECT_TRUE(host->violations.Lines().empty());
}

TEST_F(HostFontsTest, AsksTheSourceOncePerLanguage)
{
    (void)host->fonts.GetDefaultName(1);
    fonts.defaults["ja"] = "Later";
    EXPECT_EQ("Default-Regular", host->fonts.GetDefaultName(1));
    EXPECT_EQ(std::vector<std::string>{"ja"}, fonts.asked);
}

TEST_F(HostFontsTest, CutsTheNameToTheBuffer)
{
    const AIFontKey key = host->fonts.GetKey("ABCDEFGH");
    char name[5] = "";
    EXPECT_EQ(kHostSuccess, suite.GetPostScriptFontName(key, name, 4));
    EXPECT_STREQ("ABC", name);
}

TEST_F(HostFontsTest, HasNoDefaultOnASystemWithoutFonts)
{
    fonts.defaults[""] = "";
    AIFontKey key = nullptr;
    EXPECT_NE(kHostSuccess, suite.GetDefaultFontForScript(-2, &key));
    EXPECT_EQ(nullptr, key);
}

TEST_F(HostFontsTest, GivesTheSameKeyForTheSameName)
{
    EXPECT_EQ(host->fonts.GetKey("A"), host->fonts.GetKey("A"));
    EXPECT_NE(host->fonts.GetKey("A"), host->fonts.GetKey("a"));
}
