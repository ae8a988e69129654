#include "fonts/FontSubset.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "FontTestHome.h"

namespace {

using fonts::EmbeddingRights;
using fonts::FontSubset;
using fonts::MakeFontSubset;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kOpenTypeFont = "/usr/share/fonts/opentype/urw-base35/C059-Italic.otf";
constexpr const char* kType1Font = "/usr/share/fonts/type1/urw-base35/C059-Italic.t1";

std::string ReadAll(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// A subset as FreeType reads it.
class LoadedSubset {
public:
    explicit LoadedSubset(const std::string& bytes)
    {
        EXPECT_EQ(0, FT_Init_FreeType(&mLibrary));
        EXPECT_EQ(0, FT_New_Memory_Face(mLibrary, reinterpret_cast<const FT_Byte*>(bytes.data()),
                                        static_cast<FT_Long>(bytes.size()), 0, &mFace));
    }
    ~LoadedSubset() { FT_Done_FreeType(mLibrary); }
    LoadedSubset(const LoadedSubset&) = delete;
    LoadedSubset& operator=(const LoadedSubset&) = delete;

    FT_Face Get() const { return mFace; }

    // Whether it has a glyph with an outline for the character.
    bool Draws(char32_t character) const
    {
        const FT_UInt glyph = mFace == nullptr ? 0 : FT_Get_Char_Index(mFace, character);
        return glyph != 0 && FT_Load_Glyph(mFace, glyph, FT_LOAD_NO_SCALE) == 0 &&
               mFace->glyph->outline.n_points > 0;
    }

private:
    FT_Library mLibrary = nullptr;
    FT_Face mFace = nullptr;
};

// Puts the fsType into the OS/2 table of a font file.
void SetEmbeddingType(std::string& font, unsigned type)
{
    const auto number = [&](size_t at, int count) {
        size_t value = 0;
        for (int i = 0; i < count; ++i)
            value = value << 8 | static_cast<unsigned char>(font[at + i]);
        return value;
    };
    const size_t entry = font.find("OS/2");
    ASSERT_NE(std::string::npos, entry);
    const size_t table = number(entry + 8, 4);
    font.at(table + 8) = static_cast<char>(type >> 8);
    font.at(table + 9) = static_cast<char>(type & 0xff);
}

TEST(FontSubset, HasTheGlyphsAskedForAndNoOthers)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const FontSubset subset = MakeFontSubset(file, 0, U"Ähre 7Ω");
    EXPECT_THAT(subset.problem, IsEmpty());
    EXPECT_EQ(0U, subset.missing);
    EXPECT_GT(20'000U, subset.bytes.size());
    const LoadedSubset loaded(subset.bytes);
    for (const char32_t character : std::u32string(U"Ähre7Ω")) {
        EXPECT_TRUE(loaded.Draws(character)) << static_cast<int>(character);
    }
    EXPECT_FALSE(loaded.Draws(U'Z'));
}

TEST(FontSubset, HasTheOutlinesOfAnOpenTypeFont)
{
    if (!std::filesystem::exists(kOpenTypeFont)) GTEST_SKIP() << "no OpenType font here";
    const FontSubset subset = MakeFontSubset(kOpenTypeFont, 0, U"Quiz");
    EXPECT_THAT(subset.bytes, StartsWith("OTTO"));
    const LoadedSubset loaded(subset.bytes);
    EXPECT_TRUE(loaded.Draws(U'Q'));
    EXPECT_FALSE(loaded.Draws(U'A'));
}

TEST(FontSubset, IsOfTheFaceOfACollection)
{
    const FontTestHome home;
    const auto first = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const auto second = FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary());
    const auto file = home.GetLibrary() / "both.ttc";
    FontTestHome::WriteFile(file, MakeCollection(first, second));
    EXPECT_EQ(MakeFontSubset(first, 0, U"abc").bytes, MakeFontSubset(file, 0, U"abc").bytes);
    EXPECT_EQ(MakeFontSubset(second, 0, U"abc").bytes, MakeFontSubset(file, 1, U"abc").bytes);
    EXPECT_EQ("has no face 2", MakeFontSubset(file, 2, U"abc").problem);
}

TEST(FontSubset, OfANamedInstanceNeedsNoAxes)
{
    const FontTestHome home;
    const auto plain = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const auto file = home.GetLibrary() / "variable.ttf";
    FontTestHome::WriteFile(file, MakeVariableFont(plain, {"Heavy"}));
    for (const int index : {0, 1 << 16, 7 << 16}) {
        const FontSubset subset = MakeFontSubset(file, index, U"abc");
        EXPECT_THAT(subset.problem, IsEmpty());
        EXPECT_THAT(subset.axes, IsEmpty());
        const LoadedSubset loaded(subset.bytes);
        EXPECT_TRUE(loaded.Draws(U'a'));
        EXPECT_FALSE(FT_HAS_MULTIPLE_MASTERS(loaded.Get()));
    }
}

TEST(FontSubset, IsTheSameEachTime)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary());
    const std::string bytes = MakeFontSubset(file, 0, U"Affiche").bytes;
    EXPECT_THAT(bytes, Not(IsEmpty()));
    EXPECT_EQ(bytes, MakeFontSubset(file, 0, U"Affiche").bytes);
    EXPECT_EQ(bytes, MakeFontSubset(file, 0, U"ehciffA").bytes);
}

TEST(FontSubset, SaysWhatTheFaceLacks)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const FontSubset some = MakeFontSubset(file, 0, U"a漢字漢");
    EXPECT_EQ(2U, some.missing);
    EXPECT_THAT(some.problem, IsEmpty());
    ASSERT_FALSE(some.available.empty());
    EXPECT_EQ(char32_t{0x20}, some.available.front().first);
    const FontSubset none = MakeFontSubset(file, 0, U"漢字");
    EXPECT_EQ("has none of the characters", none.problem);
    EXPECT_FALSE(none.available.empty());
}

struct RightsCase {
    unsigned type;
    EmbeddingRights rights;
};

TEST(FontSubset, ObeysTheLicenceBits)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    std::string font = ReadAll(file);
    const RightsCase cases[] = {
        {0x0000, EmbeddingRights::kAllowed},   {0x0002, EmbeddingRights::kForbidden},
        {0x0004, EmbeddingRights::kAllowed},   {0x0006, EmbeddingRights::kAllowed},
        {0x0008, EmbeddingRights::kAllowed},   {0x0100, EmbeddingRights::kNoSubset},
        {0x0204, EmbeddingRights::kNoOutline}, {0x0302, EmbeddingRights::kForbidden},
    };
    for (const RightsCase& row : cases) {
        SetEmbeddingType(font, row.type);
        FontTestHome::WriteFile(file, font);
        const FontSubset subset = MakeFontSubset(file, 0, U"abc");
        EXPECT_EQ(row.rights, subset.rights) << row.type;
        EXPECT_EQ(Describe(row.rights), subset.problem) << row.type;
        EXPECT_EQ(row.rights != EmbeddingRights::kAllowed, subset.bytes.empty()) << row.type;
    }
}

TEST(FontSubset, ReportsWhyAFileIsUnusable)
{
    const FontTestHome home;
    FontTestHome::WriteFile(home.GetLibrary() / "empty.ttf", "");
    FontTestHome::WriteFile(home.GetLibrary() / "text.otf", std::string(5000, 'x'));
    const auto problem = [&](const char* name) {
        return MakeFontSubset(home.GetLibrary() / name, 0, U"abc").problem;
    };
    EXPECT_EQ("empty", problem("empty.ttf"));
    EXPECT_EQ("not a font, or damaged", problem("text.otf"));
    EXPECT_EQ("cannot be opened", problem("missing.ttf"));
    EXPECT_EQ("not a regular file", problem("."));
}

TEST(FontSubset, NeedsAFormatThatBrowsersDraw)
{
    if (!std::filesystem::exists(kType1Font)) GTEST_SKIP() << "no Type 1 font here";
    EXPECT_EQ("a Type 1 font, which browsers cannot draw",
              MakeFontSubset(kType1Font, 0, U"abc").problem);
}

TEST(FontSubset, ReadsFilesThatAreCutAnywhere)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSansMono-Bold", home.GetLibrary());
    const std::string whole = ReadAll(file);
    for (size_t size = 0; size < whole.size(); size += whole.size() / 40) {
        FontTestHome::WriteFile(file, whole.substr(0, size));
        const FontSubset subset = MakeFontSubset(file, 0, U"abc");
        EXPECT_EQ(subset.bytes.empty(), !subset.problem.empty()) << size;
    }
}

TEST(FontSubset, ReadsFilesWithDamagedBytes)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const std::string whole = ReadAll(file);
    std::mt19937 random(13);
    for (int copy = 0; copy < 60; ++copy) {
        std::string damaged = whole;
        // The table directory and the tables behind it have most of the structure.
        for (int byte = 0; byte < 30; ++byte) {
            const size_t most = byte < 3 ? 300 : damaged.size();
            damaged.at(random() % most) = static_cast<char>(random());
        }
        FontTestHome::WriteFile(file, damaged);
        const FontSubset subset = MakeFontSubset(file, static_cast<int>(random() % 3), U"abcÄ");
        EXPECT_EQ(subset.bytes.empty(), !subset.problem.empty()) << copy;
    }
}

}  // namespace
