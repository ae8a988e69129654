#include "plugin-core/library/FontLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FontTestHome.h"
#include "plugin-core/library/LibraryFolders.h"
#include "plugin-core/services/DocumentStore.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using plugincore::Database;
using plugincore::Failure;
using plugincore::FontLibrary;

namespace {

class FontLibraryTest : public testing::Test {
protected:
    fs::path Copy(const std::string& name, const std::string& folder = "")
    {
        return FontTestHome::CopyFont(name, mHome.GetLibrary() / folder);
    }

    FontTestHome mHome;
    Database mDatabase{mHome.GetPath() / "state/fonts.db"};
    FontLibrary mLibrary{mDatabase, {mHome.GetLibrary()}};
};

TEST_F(FontLibraryTest, FindsByNameByteForByteAtAnyDepth)
{
    const fs::path file = Copy("DejaVuSans-Bold", "a/b/c");
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.Find("DejaVuSans-Bold"), file);
    EXPECT_EQ(mLibrary.Find("dejavusans-bold"), std::nullopt);
    EXPECT_EQ(mLibrary.Find(""), std::nullopt);
}

TEST_F(FontLibraryTest, ASecondRefreshReadsNothing)
{
    Copy("DejaVuSans");
    FontTestHome::WriteFile(mHome.GetLibrary() / "bad.otf", "bad");
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.GetCounts().filesRead, 2);
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.GetCounts().filesRead, 0);
    EXPECT_EQ(mLibrary.GetCounts().badFiles, 1);
}

TEST_F(FontLibraryTest, ReadsAgainWhatHasAnotherTimeOrSize)
{
    const fs::path file = Copy("DejaVuSans");
    mLibrary.Refresh();
    fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.GetCounts().filesRead, 1);
    fs::copy_file("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf", file,
                  fs::copy_options::overwrite_existing);
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.Find("DejaVuSerif"), file);
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), std::nullopt);
}

TEST_F(FontLibraryTest, ForgetsWhatIsGone)
{
    const fs::path file = Copy("DejaVuSans");
    mLibrary.Refresh();
    fs::remove(file);
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), std::nullopt);
    EXPECT_EQ(mLibrary.GetCounts().names, 0);
}

TEST_F(FontLibraryTest, CountsBadFilesAndGoesOn)
{
    FontTestHome::WriteFile(mHome.GetLibrary() / "empty.ttf", "");
    FontTestHome::WriteFile(mHome.GetLibrary() / "text.pfb", "text");
    FontTestHome::WriteFile(mHome.GetLibrary() / "readme.txt", "not counted");
    fs::create_directory(mHome.GetLibrary() / "folder.ttf");
    fs::create_symlink("nowhere", mHome.GetLibrary() / "dangling.ttf");
    Copy("DejaVuSerif", "folder.ttf");
    mLibrary.Refresh();
    const FontLibrary::Counts counts = mLibrary.GetCounts();
    EXPECT_EQ(counts.badFiles, 2);
    EXPECT_EQ(counts.files, 1);
    EXPECT_EQ(counts.names, 1);
}

TEST_F(FontLibraryTest, TakesTheNewestOfSeveralFiles)
{
    const fs::path older = Copy("DejaVuSans", "b");
    const fs::path newer = Copy("DejaVuSans", "a");
    fs::last_write_time(older, fs::last_write_time(newer) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), newer);
    fs::last_write_time(newer, fs::last_write_time(older) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), older);
}

TEST_F(FontLibraryTest, TakesOpenTypeBeforeANewerType1)
{
    const fs::path openType = Copy("DejaVuSans");
    mLibrary.Refresh();
    // Stands for a Type 1 file of that name: the rule works on the index.
    mDatabase.Execute(
        "INSERT INTO font_file(id, library, path, modified, size) SELECT 99, library, '/t1.pfb',"
        " modified + 1000, 1 FROM font_file;"
        "INSERT INTO font_face(file, name, face_index, is_type1) VALUES(99, 'DejaVuSans', 0, 1);");
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), openType);
    mDatabase.Execute("DELETE FROM font_file WHERE id <> 99");
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), "/t1.pfb");
}

TEST_F(FontLibraryTest, SeesOnlyItsOwnFolders)
{
    FontTestHome::CopyFont("DejaVuSerif", mHome.GetPath() / "other \"library\"");
    FontLibrary other(mDatabase, {mHome.GetPath() / "other \"library\""});
    other.Refresh();
    mLibrary.Refresh();
    EXPECT_NE(other.Find("DejaVuSerif"), std::nullopt);
    EXPECT_EQ(mLibrary.Find("DejaVuSerif"), std::nullopt);
}

TEST_F(FontLibraryTest, AFolderThatIsNotThereIsEmpty)
{
    FontLibrary nowhere(mDatabase, {mHome.GetPath() / "nowhere"});
    nowhere.Refresh();
    EXPECT_EQ(nowhere.GetCounts().files, 0);
}

TEST_F(FontLibraryTest, ADatabaseThatCannotBeMadeIsNamed)
{
    FontTestHome::WriteFile(mHome.GetPath() / "file", "");
    const fs::path path = mHome.GetPath() / "file/state/fonts.db";
    try {
        Database database(path);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), testing::StartsWith(path.parent_path().string()));
        EXPECT_EQ(failure.GetStatus(), plugincore::StatusCodes::kDatabaseError);
    }
}

TEST_F(FontLibraryTest, ADatabaseOfANewerVersionIsRefused)
{
    mDatabase.Execute("PRAGMA user_version = 4");
    EXPECT_THROW(Database(mHome.GetPath() / "state/fonts.db"), Failure);
}

TEST_F(FontLibraryTest, ADatabaseOfTheFirstVersionIsBroughtUpToDate)
{
    Copy("DejaVuSans");
    mLibrary.Refresh();
    mDatabase.Execute(
        "DROP TABLE added_folder; DROP TABLE choice; DROP TABLE program;"
        "PRAGMA user_version = 1;"
        "INSERT INTO document(id, path, usage) VALUES('7', '/a.ai', '{}')");
    Database database(mHome.GetPath() / "state/fonts.db");
    plugincore::DocumentStore documents(database, "");
    EXPECT_EQ(documents.GetId("/a.ai"), "7");
    EXPECT_EQ(documents.GetUsage("/a.ai"), "{}");
    plugincore::LibraryFolders folders(database, {"/root"});
    EXPECT_TRUE(folders.Add("/added"));
    EXPECT_EQ(folders.GetFolders().size(), 2U);
    EXPECT_NE(mLibrary.Find("DejaVuSans"), std::nullopt);
}

TEST_F(FontLibraryTest, ASelectionLimitsWhereFontsComeFrom)
{
    const fs::path house = Copy("DejaVuSans", "House");
    Copy("DejaVuSerif", "Housework");
    mLibrary.Refresh();
    mLibrary.SetSelection(mHome.GetLibrary() / "House");
    EXPECT_EQ(mLibrary.Find("DejaVuSans"), house);
    EXPECT_EQ(mLibrary.Find("DejaVuSerif"), std::nullopt);
    EXPECT_NE(mLibrary.FindAnywhere("DejaVuSerif"), std::nullopt);
    mLibrary.SetSelection("");
    EXPECT_NE(mLibrary.Find("DejaVuSerif"), std::nullopt);
}

TEST_F(FontLibraryTest, ListsNamesInPages)
{
    for (const char* name : {"DejaVuSerif", "DejaVuSans", "DejaVuSansMono"}) Copy(name, "House");
    Copy("DejaVuSans-Bold");
    mLibrary.Refresh();
    const std::string house = mHome.GetLibrary() / "House";
    EXPECT_EQ(mLibrary.CountNames(""), 4);
    EXPECT_EQ(mLibrary.CountNames(house), 3);
    EXPECT_THAT(mLibrary.ListNames(house, 1, 5),
                testing::ElementsAre("DejaVuSansMono", "DejaVuSerif"));
    EXPECT_THAT(mLibrary.ListNames("", 0, 1), testing::ElementsAre("DejaVuSans"));
}

}  // namespace
