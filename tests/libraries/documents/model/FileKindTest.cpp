#include "documents/model/FileKind.h"

#include <gmock/gmock.h>

#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;

namespace {

std::string MakeLittleEndian(unsigned value)
{
    std::string bytes;
    for (int index = 0; index < 4; ++index) bytes += static_cast<char>(value >> (8 * index) & 255);
    return bytes;
}

std::string MakeDosEps(unsigned offset, unsigned length, const std::string& rest)
{
    return "\xC5\xD0\xD3\xC6" + MakeLittleEndian(offset) + MakeLittleEndian(length) +
           std::string(18, '\0') + rest;
}

constexpr char kEps[] = "%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: A\n";
constexpr unsigned kEpsLength = sizeof kEps - 1;

}  // namespace

TEST(FileKind, FirstBytesDetermineTheContainer)
{
    EXPECT_EQ(Container::kPDF, GetContainer("%PDF-1.4"));
    EXPECT_EQ(Container::kPDF, GetContainer(std::string(1019, 'x') + "%PDF-"));
    EXPECT_EQ(Container::kNone, GetContainer(std::string(1020, 'x') + "%PDF-"));
    EXPECT_EQ(Container::kPostScript, GetContainer("%!PS-Adobe-3.0 PDF %PDF-1.4"));
    EXPECT_EQ(Container::kPostScript, GetContainer("%!\n%%Creator: A"));
    EXPECT_EQ(Container::kPDF, GetContainer("%! made by A\n%PDF-1.4"));
    EXPECT_EQ(Container::kNone, GetContainer(" %!PS"));
    EXPECT_EQ(Container::kNone, GetContainer("%"));
    EXPECT_EQ(Container::kDosEPS, GetContainer("\xC5\xD0\xD3\xC6"));
    EXPECT_EQ(Container::kNone, GetContainer(""));
}

TEST(FileKind, PostScriptWithoutItsNameIsRead)
{
    const OpenResult result =
        OpenBytes("%!\r%%Creator: Adobe Illustrator(R) 8.0\r%%DocumentFonts: A\r", "a.ai");
    EXPECT_EQ("A:1", DescribeFrames(result));
    EXPECT_EQ(Kind::kIllustrator, result.document.kind);
}

TEST(FileKind, FileNameDeterminesOnlyTemplates)
{
    EXPECT_EQ(Kind::kPDF, OpenBytes(PdfMaker().Make(), "a.eps").document.kind);
    EXPECT_EQ(Kind::kEPS, OpenBytes(kEps, "a.ai").document.kind);
    EXPECT_TRUE(OpenBytes(kEps, "a.AiT").document.isTemplate);
    EXPECT_FALSE(OpenBytes(kEps, "a.ai").document.isTemplate);
}

TEST(FileKind, TemplatesAreNamedByTheirExtension)
{
    EXPECT_TRUE(IsTemplatePath("/a/b.ait"));
    EXPECT_TRUE(IsTemplatePath("B.AIT"));
    EXPECT_FALSE(IsTemplatePath("ait"));
    EXPECT_FALSE(IsTemplatePath("a.ait/b"));
}

TEST(FileKind, DosEpsPointsToItsPostScript)
{
    const OpenResult result = OpenBytes(
        MakeDosEps(40, kEpsLength, std::string(10, 'x') + kEps + "%%DocumentFonts: TooFar\n"));
    EXPECT_THAT(result.document.fonts, ElementsAre("A"));
    EXPECT_EQ(Kind::kEPS, result.document.kind);
}

TEST(FileKind, DosEpsWithShortSectionIsReadWithANote)
{
    const OpenResult result = OpenBytes(MakeDosEps(30, 0xFFFFFFFF, kEps));
    EXPECT_THAT(result.document.fonts, ElementsAre("A"));
    EXPECT_THAT(result.document.notes, ElementsAre("the PostScript section is cut off"));
}

TEST(FileKind, DosEpsWithoutItsSectionIsRefused)
{
    EXPECT_EQ("cut off before its PostScript section",
              OpenBytes(MakeDosEps(0xFFFFFFFF, 10, kEps)).error);
    EXPECT_EQ("cut off within its EPS header", OpenBytes("\xC5\xD0\xD3\xC6 short").error);
    EXPECT_EQ("its EPS header points to something that isn't PostScript",
              OpenBytes(MakeDosEps(31, kEpsLength, kEps)).error);
}

TEST(FileKind, EachKindHasAName)
{
    EXPECT_STREQ("ai", GetKindName(Kind::kIllustrator));
    EXPECT_STREQ("pdf", GetKindName(Kind::kPDF));
    EXPECT_STREQ("eps", GetKindName(Kind::kEPS));
    EXPECT_STREQ("unknown", GetKindName(Kind::kUnknown));
}
