#include "fonts/FaceNames.h"

#include <gtest/gtest.h>

#include "FontTestHome.h"

TEST(FaceNames, AreThoseForPeople)
{
    const FontTestHome home;
    const std::string file = FontTestHome::CopyFont("DejaVuSans-BoldOblique", home.GetLibrary());
    const fonts::FaceNames names = fonts::ReadFaceNames(file, 0);
    EXPECT_EQ("DejaVu Sans", names.family);
    EXPECT_EQ("Bold Oblique", names.style);
}

TEST(FaceNames, AreEmptyForWhatIsNoFace)
{
    const FontTestHome home;
    const std::string file = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    FontTestHome::WriteFile(home.GetPath() / "text.ttf", "no font");
    EXPECT_EQ("", fonts::ReadFaceNames(file, 7).family);
    EXPECT_EQ("", fonts::ReadFaceNames(home.GetPath() / "text.ttf", 0).family);
    EXPECT_EQ("", fonts::ReadFaceNames(home.GetPath() / "none.ttf", 0).family);
}
