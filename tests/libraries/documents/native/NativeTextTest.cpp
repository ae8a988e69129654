#include <gmock/gmock.h>

#include <string>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;
using Keys = NativeMaker::Keys;

namespace {

NativeMaker MakeThreeFonts(Keys keys = Keys::kNumbers)
{
    return NativeMaker(keys)
        .SetFonts({"Default-Regular", "Serif-Bold", "Sans-Italic", "AdobeInvisFont"})
        .AddStyle(0);
}

class NativeTextKeys : public testing::TestWithParam<Keys> {};

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, NativeTextKeys, testing::Values(Keys::kNumbers, Keys::kWords));

TEST_P(NativeTextKeys, RunsOfAStoryAreRead)
{
    const OpenResult result =
        OpenNative(MakeThreeFonts(GetParam()).AddStory({{2, 3}, {1, 4}, {2, 2}}).AddFrame(0));
    EXPECT_EQ("Sans-Italic:3 Serif-Bold:4 Sans-Italic:1", DescribeFrames(result));
    EXPECT_THAT(result.document.fonts, ElementsAre("Sans-Italic", "Serif-Bold"));
}

TEST_P(NativeTextKeys, RunWithoutFontTakesItsStyles)
{
    const OpenResult result = OpenNative(MakeThreeFonts(GetParam())
                                             .AddStyle(1)       // 1
                                             .AddStyle(-1, 1)   // 2
                                             .AddStyle(-1, -1)  // 3
                                             .AddStory({{-1, 2, 2}, {-1, 3, 3}, {-1, 4, 99}})
                                             .AddFrame(0));
    EXPECT_EQ("Serif-Bold:2 Default-Regular:3 Default-Regular:3", DescribeFrames(result));
}

TEST_P(NativeTextKeys, FontsWithoutRunsAreIgnored)
{
    EXPECT_THAT(
        OpenNative(MakeThreeFonts(GetParam()).AddStory({{1, 2}}).AddFrame(0)).document.fonts,
        ElementsAre("Serif-Bold"));
}

TEST_P(NativeTextKeys, StoryWithoutAListOfRunsIsOneRunInTheDefaultFont)
{
    const OpenResult result = OpenNative(MakeThreeFonts(GetParam())
                                             .AddPlainStory("a (b)\\\r")
                                             .AddStory({{1, 3}})
                                             .AddPlainStory("\r")
                                             .AddFrame(0)
                                             .AddFrame(1)
                                             .AddFrame(2));
    EXPECT_EQ("Default-Regular:6 | Serif-Bold:2 |", DescribeFrames(result));
    EXPECT_THAT(result.document.fonts, ElementsAre("Default-Regular", "Serif-Bold"));
}

TEST(NativeText, FramesOfAStoryWithoutAListOfRunsShowTheirPartsOfIt)
{
    EXPECT_EQ(
        "Default-Regular:2 | Default-Regular:3",
        DescribeFrames(OpenNative(
            MakeThreeFonts().AddPlainStory("abcde\r", {2, 4}).AddFrame(0, 0).AddFrame(0, 1))));
}

TEST(NativeText, CircularStylesHaveTheDefaultFont)
{
    EXPECT_EQ(
        "Default-Regular:1",
        DescribeFrames(OpenNative(
            MakeThreeFonts().AddStyle(-1, 2).AddStyle(-1, 1).AddStory({{-1, 2, 1}}).AddFrame(0))));
}

TEST(NativeText, FramesAreInPaintOrder)
{
    const OpenResult result =
        OpenNative(MakeThreeFonts().AddStory({{1, 2}}).AddStory({{2, 3}}).AddFrame(1).AddFrame(0));
    EXPECT_EQ("Sans-Italic:2 | Serif-Bold:1", DescribeFrames(result));
    EXPECT_EQ(1U, result.document.frames[0].story);
    EXPECT_EQ(0U, result.document.frames[1].story);
    EXPECT_THAT(result.document.fonts, ElementsAre("Serif-Bold", "Sans-Italic"));
}

TEST(NativeText, FramesOfAStoryShowTheirPartsOfIt)
{
    const OpenResult result = OpenNative(MakeThreeFonts()
                                             .AddStory({{1, 10}, {2, 5}, {1, 6}}, {4, 8, 9})
                                             .AddFrame(0, 0)
                                             .AddFrame(0, 2)
                                             .AddFrame(0, 1));
    EXPECT_EQ("Serif-Bold:4 | Sans-Italic:3 Serif-Bold:5 | Serif-Bold:6 Sans-Italic:2",
              DescribeFrames(result));
    EXPECT_EQ(1U, result.document.stories.size());
}

TEST(NativeText, FramesOfAStoryWithoutLayoutShowAllOfIt)
{
    const OpenResult result = OpenNative(MakeThreeFonts(Keys::kWords)
                                             .AddStory({{1, 3}, {2, 3}}, {3, 3})
                                             .AddFrame(0, 0)
                                             .AddFrame(0, 1));
    EXPECT_EQ("Serif-Bold:3 Sans-Italic:2 | Serif-Bold:3 Sans-Italic:2", DescribeFrames(result));
}

TEST(NativeText, TextBehindTheLastFrameIsInTheStoryOnly)
{
    const OpenResult result = OpenNative(
        MakeThreeFonts().AddStory({{1, 10}, {2, 5}}, {4, 3}).AddFrame(0, 0).AddFrame(0, 1));
    EXPECT_EQ("Serif-Bold:4 | Serif-Bold:3", DescribeFrames(result));
    EXPECT_THAT(result.document.fonts, ElementsAre("Serif-Bold", "Sans-Italic"));
}

TEST(NativeText, TextBehindTheOnlyFrameIsInTheStoryOnly)
{
    const OpenResult result =
        OpenNative(MakeThreeFonts().AddStory({{1, 10}, {2, 5}}, {4}).AddFrame(0));
    EXPECT_EQ("Serif-Bold:4", DescribeFrames(result));
    EXPECT_THAT(result.document.fonts, ElementsAre("Serif-Bold", "Sans-Italic"));
}

TEST(NativeText, EmptyFrameHasNoRuns)
{
    const OpenResult result = OpenNative(MakeThreeFonts().AddStory({{1, 1}}).AddFrame(0));
    ASSERT_EQ(1U, result.document.frames.size());
    EXPECT_THAT(result.document.frames[0].runs, IsEmpty());
    EXPECT_THAT(result.document.fonts, IsEmpty());
}

TEST(NativeText, StoryWithoutAFrameIsIgnored)
{
    const OpenResult result =
        OpenNative(MakeThreeFonts().AddStory({{1, 3}}).AddStory({{2, 3}}).AddFrame(1));
    EXPECT_THAT(result.document.fonts, ElementsAre("Sans-Italic"));
    EXPECT_EQ(1U, result.document.stories.size());
}

TEST(NativeText, ResultOfAnEffectIsIgnored)
{
    const OpenResult result = OpenNative(
        MakeThreeFonts()
            .AddStory({{1, 3}})
            .AddLines("%_/AI11Text :\n%_0 /FreeUndo ,\n%_0 /FrameIndex ,\n"
                      "%_0 /StoryIndex ,\n%_;\n%_")
            .AddLines("/AI11Text :\n1 /FreeUndo ,\n0 /FrameIndex ,\n0 /StoryIndex ,\n;"));
    EXPECT_EQ("Serif-Bold:2", DescribeFrames(result));
}

TEST(NativeText, FrameInTheFileTwiceIsReadOnce)
{
    EXPECT_EQ(
        "Serif-Bold:2",
        DescribeFrames(OpenNative(MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0).AddFrame(0))));
}

TEST(NativeText, FramesWithoutStoryAreNoted)
{
    const OpenResult result =
        OpenNative(MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0).AddFrame(7));
    EXPECT_EQ("Serif-Bold:2", DescribeFrames(result));
    EXPECT_THAT(result.document.notes, ElementsAre("text frames without a story: 1"));
}

TEST(NativeText, RunsWithoutAKnownFontAreNoted)
{
    const OpenResult result = OpenNative(MakeThreeFonts().AddStory({{1, 3}, {9, 4}}).AddFrame(0));
    EXPECT_EQ("Serif-Bold:3", DescribeFrames(result));
    EXPECT_THAT(result.document.notes, ElementsAre("runs without a known font: 1"));
}

TEST(NativeText, JapaneseFontNameIsRead)
{
    NativeMaker maker = MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0);
    std::string tree = maker.MakeTree();
    const std::string name = std::string("\0S\0e\0r\0i\0f", 10);
    tree.replace(tree.find(name), name.size(), "\x6E\x38\x30\xCE");
    const std::string text = "%AI5_FileFormat 7.0\r/AI11TextDocument : /ASCII85Decode ,\r" +
                             EncodeAscii85(tree) +
                             "\r/AI11Text :\r0 /FreeUndo ,\r0 /FrameIndex ,\r0 /StoryIndex ,\r;\r";
    EXPECT_EQ("\xE6\xB8\xB8\xE3\x83\x8E-Bold:2",
              DescribeFrames(OpenBytes(WrapInPdf(PackZlib(text)))));
}

TEST(NativeText, UnknownEncodingFallsBackToThePage)
{
    std::string text = MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0).MakeText();
    text.replace(text.find("/ASCII85Decode"), 14, "/ASCIIHexDecod");
    const OpenResult result = OpenBytes(WrapInPdf(PackZlib(text)));
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_THAT(
        result.document.notes,
        ElementsAre("the native document cannot be read: its text is packed in an unknown way"));
}

TEST(NativeText, MissingTreeFallsBackToThePage)
{
    const OpenResult result = OpenNative(NativeMaker().AddFrame(0));
    EXPECT_EQ("pdf", result.document.reader);
    EXPECT_THAT(result.document.notes,
                ElementsAre("the native document cannot be read: its text is missing"));
}

TEST(NativeText, DocumentWithoutTextHasNoFrames)
{
    const OpenResult result = OpenNative(NativeMaker());
    EXPECT_EQ("native", result.document.reader);
    EXPECT_THAT(result.document.frames, IsEmpty());
}

TEST(NativeText, DeepTreeIsSkipped)
{
    std::string text = MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0).MakeText();
    std::string tree = MakeThreeFonts().AddStory({{1, 3}}).MakeTree();
    tree.insert(0, "/7 " + std::string(1000000, '[') + std::string(1000000, ']') + " ");
    const std::string native = "%AI5_FileFormat 7.0\r/AI11TextDocument : /ASCII85Decode ,\r" +
                               EncodeAscii85(tree) + "\r" + text.substr(text.find("/AI11Text :"));
    EXPECT_EQ("Serif-Bold:2", DescribeFrames(OpenBytes(WrapInPdf(PackZlib(native)))));
}

TEST(NativeText, ExampleOfTheFormatPageIsRead)
{
    const std::string page = ReadWholeFile(FORMAT_PAGE);
    const std::string fence = "\n```postscript\n";
    const size_t start = page.find(fence);
    ASSERT_NE(std::string::npos, start);
    const size_t end = page.find("\n```\n", start + fence.size());
    ASSERT_NE(std::string::npos, end);
    const size_t first = start + fence.size();
    const OpenResult result = OpenBytes(page.substr(first, end + 1 - first), "example.ai");
    EXPECT_EQ("native", result.document.reader);
    EXPECT_EQ("Sans-Bold:6 Serif:5", DescribeFrames(result));
    EXPECT_EQ(1U, result.document.stories.size());
}

TEST(NativeText, LegacyTextIsReadFromItsPage)
{
    const std::string page = PdfMaker().SetContent("BT /F2 9 Tf (ab) Tj ET").Make();
    const OpenResult result = OpenNative(MakeThreeFonts().AddStory({{1, 3}}).AddFrame(0).AddLines(
        "/ArtLegacyText :\n0 /Flags ,\n/Data : /ASCII85Decode ,\n" + EncodeAscii85(page, "\n") +
        "\n/Data ,\n;"));
    EXPECT_EQ("Serif-Bold:2 | Beta-Bold:2", DescribeFrames(result));
}
