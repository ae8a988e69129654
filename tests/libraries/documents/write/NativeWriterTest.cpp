#include "documents/write/NativeWriter.h"

#include <gmock/gmock.h>

#include "NativeMaker.h"
#include "OpenBytes.h"
#include "PdfMaker.h"

using namespace documents;
using testing::ElementsAre;

TEST(NativeWriter, PlacedFilesAreReadOncePerPlacing)
{
    const OpenResult result = OpenNative(NativeMaker()
                                             .AddPlacedFile("/Art/a (1).eps")
                                             .AddPlacedFile("b\\c.tif")
                                             .AddPlacedFile("/Art/a (1).eps"));
    EXPECT_EQ("native", result.document.reader);
    EXPECT_THAT(result.document.linkedFiles,
                ElementsAre("/Art/a (1).eps", "b\\c.tif", "/Art/a (1).eps"));
}

TEST(NativeWriter, TextOfAStoryIsRead)
{
    NativeWriter writer;
    writer.SetFonts({"Sans", "Serif"}).AddStyle(0);
    writer.AddStory({{0, 7}, {1, 5}}, {7, 5}, "Words\\(\r1903\r").AddFrame(0, 0).AddFrame(0, 1);
    EXPECT_EQ("Sans:7 | Serif:4", DescribeFrames(OpenNative(writer)));
}

TEST(NativeWriter, CreatorDeterminesTheKindOfABareDocument)
{
    const auto open = [](const std::string& creator) {
        return OpenBytes(NativeWriter()
                             .SetCreator(creator)
                             .AddLines("0 To\n/_Courier 11 8 -2 Tf\n(abc) Tx\nTO")
                             .MakeText())
            .document;
    };
    EXPECT_EQ(Kind::kIllustrator, open("Adobe Illustrator(R) 8.0").kind);
    EXPECT_EQ("Drawer", open("Drawer").creator);
}
