#include "fonts/FontFaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> GetNames(const fonts::FontFaces& content)
{
    std::vector<std::string> names;
    for (const fonts::FontFace& face : content.faces) names.push_back(face.postScriptName);
    return names;
}

TEST(FontFaces, ReadsTheNameOfAPlainFile)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans-Bold", home.GetLibrary());
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    EXPECT_THAT(GetNames(content), ElementsAre("DejaVuSans-Bold"));
    EXPECT_THAT(content.problem, IsEmpty());
    EXPECT_FALSE(content.faces.at(0).isType1);
}

TEST(FontFaces, ReadsAllMembersOfACollection)
{
    const FontTestHome home;
    const auto first = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const auto second = FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary());
    const auto file = home.GetLibrary() / "both.ttc";
    FontTestHome::WriteFile(file, MakeCollection(first, second));
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    ASSERT_THAT(GetNames(content), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ(1, content.faces[1].index);
}

TEST(FontFaces, ReadsTheNamedInstancesOfAVariableFont)
{
    const FontTestHome home;
    const auto plain = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const auto file = home.GetLibrary() / "variable.ttf";
    FontTestHome::WriteFile(file, MakeVariableFont(plain, {"Heavy"}));
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    ASSERT_THAT(GetNames(content), ElementsAre("DejaVuSansMono", "DejaVuSansMono-Heavy"));
    EXPECT_EQ(1 << 16, content.faces[1].index);
}

TEST(FontFaces, ReportsWhyAFileIsUnusable)
{
    const FontTestHome home;
    FontTestHome::WriteFile(home.GetLibrary() / "empty.ttf", "");
    FontTestHome::WriteFile(home.GetLibrary() / "text.otf", std::string(5000, 'x'));
    for (const char* name : {"empty.ttf", "text.otf", "missing.ttf", ""}) {
        const fonts::FontFaces content = fonts::ReadFontFaces(home.GetLibrary() / name);
        EXPECT_THAT(content.faces, IsEmpty()) << name;
        EXPECT_FALSE(content.problem.empty()) << name;
    }
}

TEST(FontFaces, ReadsFilesThatAreCutAnywhere)
{
    const FontTestHome home;
    const auto first = FontTestHome::CopyFont("DejaVuSansMono-Bold", home.GetLibrary());
    const std::string whole = MakeCollection(first, first);
    const auto file = home.GetLibrary() / "cut.ttc";
    for (size_t size = 0; size < whole.size(); size += whole.size() / 40) {
        FontTestHome::WriteFile(file, whole.substr(0, size));
        const fonts::FontFaces content = fonts::ReadFontFaces(file);
        EXPECT_EQ(content.faces.empty(), !content.problem.empty()) << size;
    }
}

}  // namespace
