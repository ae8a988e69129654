#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CoreSession.h"
#include "plugin-core/services/Services.h"

namespace fs = std::filesystem;

namespace {

using plugincore::Services;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A font file, or the folder with all of them, disappears while a document holds its font.
class GoneFilesTest : public testing::Test {
protected:
    GoneFilesTest()
    {
        EXPECT_EQ(0U, mSession.core.OpenAndActivate("/a.ai", MakeFontList({"DejaVuSans"})));
        EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    }

    CoreSession mSession;
    const fs::path mFile = mSession.home.GetLibrary() / "DejaVuSans.ttf";
};

TEST_F(GoneFilesTest, RepairDeactivatesAFontWhoseFileIsGone)
{
    fs::remove(mFile);
    Services services(plugincore::GetLocations());
    const plugincore::Activation::Repairs repairs = services.Start();
    EXPECT_THAT(repairs.goneFiles, ElementsAre(mFile.string()));
    EXPECT_THAT(services.activation.GetActive(), IsEmpty());
    EXPECT_EQ(mFile.string(), services.activation.FindGoneFile("DejaVuSans"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
    EXPECT_THAT(ListActivationFolder(mSession.home), IsEmpty());
    services.Stop();
}

TEST_F(GoneFilesTest, OpeningReportsAFontWhoseFolderIsGone)
{
    fs::remove_all(mSession.home.GetLibrary());
    const std::string errors = CaptureErrors([&] {
        EXPECT_NE(0U, mSession.core.OpenAndActivate("/b.ai", MakeFontList({"DejaVuSans"})));
    });
    EXPECT_THAT(errors, HasSubstr(mFile.string() +
                                  ": the font file is gone; no longer active: DejaVuSans\n"));
    EXPECT_THAT(errors, HasSubstr("no readable file of the font library has DejaVuSans\n"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(GoneFilesTest, OpeningOffersAnotherFileWithTheFont)
{
    fs::remove(mFile);
    const fs::path other = FontTestHome::CopyFont("DejaVuSans", mSession.home.GetLibrary() / "B");
    const std::string errors = CaptureErrors([&] {
        EXPECT_EQ(0U, mSession.core.OpenAndActivate("/b.ai", MakeFontList({"DejaVuSans"})));
    });
    EXPECT_THAT(errors, HasSubstr("the font file is gone"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
    Services services(plugincore::GetLocations());
    EXPECT_EQ(other.string(), services.activation.FindActiveFile("DejaVuSans"));
}

TEST_F(GoneFilesTest, IdleTimeDeactivatesIt)
{
    fs::remove(mFile);
    const std::string errors = CaptureErrors([&] { EXPECT_EQ(0U, mSession.core.pIdleEvent()); });
    EXPECT_THAT(errors, HasSubstr("the font file is gone"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

}  // namespace
