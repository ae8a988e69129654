#include "fonts/ActiveFonts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(ActiveFonts, ListIsEmptyWithoutFonts)
{
    const FontTestHome home;
    EXPECT_THAT(fonts::ListActiveFonts(), IsEmpty());
    EXPECT_EQ("", fonts::GetDefaultFontName(""));
}

TEST(ActiveFonts, EachListHasAddedFontsAndNoRemovedOnes)
{
    const FontTestHome home;
    EXPECT_THAT(fonts::GetActiveFontNames(), IsEmpty());
    const auto file = FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSerif"));
    std::filesystem::remove(file);
    EXPECT_THAT(fonts::GetActiveFontNames(), IsEmpty());
}

// As after two changes within one step of the file system's clock.
TEST(ActiveFonts, RescanSeesAChangeThatLeftTheTimeOfTheFolder)
{
    const FontTestHome home;
    const auto folder = home.GetUserFonts() / "group";
    const auto file = FontTestHome::CopyFont("DejaVuSerif", folder);
    const auto time = std::filesystem::last_write_time(folder);
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSerif"));
    std::filesystem::remove(file);
    FontTestHome::CopyFont("DejaVuSans", folder);
    std::filesystem::last_write_time(folder, time);
    ASSERT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSerif"));
    fonts::RescanFolder(home.GetUserFonts());
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSans"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST(ActiveFonts, ReturnsFileAndIndex)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans-Bold", home.GetUserFonts());
    const auto list = fonts::ListActiveFonts();
    ASSERT_EQ(1U, list.size());
    EXPECT_EQ(file, list[0].file);
    EXPECT_EQ(0, list[0].index);
}

TEST(ActiveFonts, InstancesHaveTheNamesInDocuments)
{
    const FontTestHome home;
    const auto plain = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    FontTestHome::WriteFile(home.GetUserFonts() / "variable.ttf",
                            MakeVariableFont(plain, {"Heavy"}));
    EXPECT_THAT(fonts::GetActiveFontNames(), ElementsAre("DejaVuSansMono", "DejaVuSansMono-Heavy"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), Not(Contains("DejaVuSansMono-Heavy")));
}

TEST(ActiveFonts, DefaultFontIsActive)
{
    const FontTestHome home;
    FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    EXPECT_EQ("DejaVuSerif", fonts::GetDefaultFontName(""));
    EXPECT_EQ("DejaVuSerif", fonts::GetDefaultFontName("ja"));
}

TEST(ActiveFonts, CachesAreInTheHome)
{
    const FontTestHome home;
    FontTestHome::CopyFont("DejaVuSerif", home.GetUserFonts());
    (void)fonts::ListActiveFonts();  // for the cache that it writes
    EXPECT_TRUE(std::filesystem::exists(home.GetPath() / "cache/fontconfig"));
}

}  // namespace
