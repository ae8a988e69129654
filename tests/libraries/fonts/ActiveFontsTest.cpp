#include "fonts/ActiveFonts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(ActiveFonts, WithoutFontsTheListIsEmpty)
{
    const FontTestHome home;
    EXPECT_THAT(fonts::ListActiveFonts(), IsEmpty());
    EXPECT_EQ(fonts::GetDefaultFontName(""), "");
}

TEST(ActiveFonts, EachListSeesWhatCameAndWent)
{
    const FontTestHome home;
    EXPECT_THAT(fonts::GetActiveFontNames(), IsEmpty());
    const auto file = FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSerif"));
    std::filesystem::remove(file);
    EXPECT_THAT(fonts::GetActiveFontNames(), IsEmpty());
}

TEST(ActiveFonts, TellsFileAndIndex)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans-Bold", home.GetUserFonts());
    const auto list = fonts::ListActiveFonts();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].file, file);
    EXPECT_EQ(list[0].index, 0);
}

TEST(ActiveFonts, InstancesHaveTheNamesThatDocumentsWrite)
{
    const FontTestHome home;
    const auto plain = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    FontTestHome::WriteFile(home.GetUserFonts() / "variable.ttf",
                            MakeVariableFont(plain, {"Heavy"}));
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSansMono", "DejaVuSansMono-Heavy"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), Not(Contains("DejaVuSansMono-Heavy")));
}

TEST(ActiveFonts, TheDefaultIsOneOfThoseActive)
{
    const FontTestHome home;
    FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    EXPECT_EQ(fonts::GetDefaultFontName(""), "DejaVuSerif");
    EXPECT_EQ(fonts::GetDefaultFontName("ja"), "DejaVuSerif");
}

TEST(ActiveFonts, CachesStayInTheHome)
{
    const FontTestHome home;
    FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    (void)fonts::ListActiveFonts();  // for what it writes
    EXPECT_TRUE(std::filesystem::exists(home.GetPath() / "cache/fontconfig"));
}

}  // namespace
