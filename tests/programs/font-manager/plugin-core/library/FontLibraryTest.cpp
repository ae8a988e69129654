#include "plugin-core/library/FontLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

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

TEST_F(FontLibraryTest, FindsExactNamesAtAnyDepth)
{
    const fs::path file = Copy("DejaVuSans-Bold", "a/b/c");
    mLibrary.Refresh();
    EXPECT_EQ(file, mLibrary.Find("DejaVuSans-Bold"));
    EXPECT_EQ(std::nullopt, mLibrary.Find("dejavusans-bold"));
    EXPECT_EQ(std::nullopt, mLibrary.Find(""));
}

TEST_F(FontLibraryTest, SecondRefreshReadsNothing)
{
    Copy("DejaVuSans");
    FontTestHome::WriteFile(mHome.GetLibrary() / "bad.otf", "bad");
    mLibrary.Refresh();
    EXPECT_EQ(2, mLibrary.GetCounts().filesRead);
    mLibrary.Refresh();
    EXPECT_EQ(0, mLibrary.GetCounts().filesRead);
    EXPECT_EQ(1, mLibrary.GetCounts().badFiles);
}

TEST_F(FontLibraryTest, ReadsFilesOfAnotherTimeOrSizeAgain)
{
    const fs::path file = Copy("DejaVuSans");
    mLibrary.Refresh();
    fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(1, mLibrary.GetCounts().filesRead);
    fs::copy_file("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf", file,
                  fs::copy_options::overwrite_existing);
    mLibrary.Refresh();
    EXPECT_EQ(file, mLibrary.Find("DejaVuSerif"));
    EXPECT_EQ(std::nullopt, mLibrary.Find("DejaVuSans"));
}

TEST_F(FontLibraryTest, RemovesMissingFiles)
{
    const fs::path file = Copy("DejaVuSans");
    mLibrary.Refresh();
    fs::remove(file);
    mLibrary.Refresh();
    EXPECT_EQ(std::nullopt, mLibrary.Find("DejaVuSans"));
    EXPECT_EQ(0, mLibrary.GetCounts().names);
}

TEST_F(FontLibraryTest, CountsBadFilesAndContinues)
{
    FontTestHome::WriteFile(mHome.GetLibrary() / "empty.ttf", "");
    FontTestHome::WriteFile(mHome.GetLibrary() / "text.pfb", "text");
    FontTestHome::WriteFile(mHome.GetLibrary() / "readme.txt", "not counted");
    fs::create_directory(mHome.GetLibrary() / "folder.ttf");
    fs::create_symlink("nowhere", mHome.GetLibrary() / "dangling.ttf");
    Copy("DejaVuSerif", "folder.ttf");
    mLibrary.Refresh();
    const FontLibrary::Counts counts = mLibrary.GetCounts();
    EXPECT_EQ(2, counts.badFiles);
    EXPECT_EQ(1, counts.files);
    EXPECT_EQ(1, counts.names);
}

TEST_F(FontLibraryTest, StoresAFolderOfManyFilesInParts)
{
    constexpr int kFiles = 20001;  // one more than a part
    for (int number = 0; number < kFiles; ++number) {
        FontTestHome::WriteFile(mHome.GetLibrary() / (std::to_string(number) + ".otf"), "");
    }
    const fs::path gone = mHome.GetLibrary() / "0.otf";
    mLibrary.Refresh();
    EXPECT_EQ(kFiles, mLibrary.GetCounts().filesRead);
    EXPECT_EQ(kFiles, mLibrary.GetCounts().badFiles);
    fs::remove(gone);
    mLibrary.Refresh();
    EXPECT_EQ(0, mLibrary.GetCounts().filesRead);
    EXPECT_EQ(kFiles - 1, mLibrary.GetCounts().badFiles);
}

TEST_F(FontLibraryTest, UsesTheNewestOfSeveralFiles)
{
    const fs::path older = Copy("DejaVuSans", "b");
    const fs::path newer = Copy("DejaVuSans", "a");
    fs::last_write_time(older, fs::last_write_time(newer) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(newer, mLibrary.Find("DejaVuSans"));
    fs::last_write_time(newer, fs::last_write_time(older) - std::chrono::hours(1));
    mLibrary.Refresh();
    EXPECT_EQ(older, mLibrary.Find("DejaVuSans"));
}

TEST_F(FontLibraryTest, PrefersOpenTypeToANewerType1)
{
    const fs::path openType = Copy("DejaVuSans");
    mLibrary.Refresh();
    // Instead of a real Type 1 file: the rule uses the index only.
    mDatabase.Execute(
        "INSERT INTO font_file(id, library, path, modified, size) SELECT 99, library, '/t1.pfb',"
        " modified + 1000, 1 FROM font_file;"
        "INSERT INTO font_face(file, name, face_index, is_type1) VALUES(99, 'DejaVuSans', 0, 1);");
    EXPECT_EQ(openType, mLibrary.Find("DejaVuSans"));
    mDatabase.Execute("DELETE FROM font_file WHERE id <> 99");
    EXPECT_EQ("/t1.pfb", mLibrary.Find("DejaVuSans"));
}

TEST_F(FontLibraryTest, UsesOnlyItsOwnFolders)
{
    FontTestHome::CopyFont("DejaVuSerif", mHome.GetPath() / "other \"library\"");
    FontLibrary other(mDatabase, {mHome.GetPath() / "other \"library\""});
    other.Refresh();
    mLibrary.Refresh();
    EXPECT_NE(std::nullopt, other.Find("DejaVuSerif"));
    EXPECT_EQ(std::nullopt, mLibrary.Find("DejaVuSerif"));
}

TEST_F(FontLibraryTest, MissingFolderIsEmpty)
{
    FontLibrary nowhere(mDatabase, {mHome.GetPath() / "nowhere"});
    nowhere.Refresh();
    EXPECT_EQ(0, nowhere.GetCounts().files);
}

TEST_F(FontLibraryTest, ErrorNamesADatabaseThatCannotBeCreated)
{
    FontTestHome::WriteFile(mHome.GetPath() / "file", "");
    const fs::path path = mHome.GetPath() / "file/state/fonts.db";
    try {
        Database database(path);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), testing::StartsWith(path.parent_path().string()));
        EXPECT_EQ(plugincore::StatusCodes::kDatabaseError, failure.GetStatus());
    }
}

TEST_F(FontLibraryTest, RejectsADatabaseOfANewerVersion)
{
    mDatabase.Execute("PRAGMA user_version = 1000");
    EXPECT_THROW(Database(mHome.GetPath() / "state/fonts.db"), Failure);
}

TEST_F(FontLibraryTest, UpdatesADatabaseOfTheFirstVersion)
{
    Copy("DejaVuSans");
    mLibrary.Refresh();
    mDatabase.Execute(
        "DROP TABLE added_folder; DROP TABLE choice; DROP TABLE program;"
        "DROP TABLE open_document; DROP TRIGGER font_face_without_family;"
        "ALTER TABLE font_face DROP COLUMN family; ALTER TABLE font_face DROP COLUMN style;"
        "ALTER TABLE font_face DROP COLUMN weight; ALTER TABLE font_face DROP COLUMN format;"
        "DROP INDEX font_file_path; DROP INDEX active_face_file; DROP INDEX active_file_group;"
        "PRAGMA user_version = 1;"
        "INSERT INTO document(id, path, usage) VALUES('7', '/a.ai', '{}')");
    Database database(mHome.GetPath() / "state/fonts.db");
    plugincore::DocumentStore documents(database, "");
    EXPECT_EQ("7", documents.GetId("/a.ai"));
    EXPECT_EQ("{}", documents.GetUsage("/a.ai"));
    plugincore::LibraryFolders folders(database, {"/root"});
    EXPECT_TRUE(folders.Add("/added"));
    EXPECT_EQ(2U, folders.GetFolders().size());
    EXPECT_NE(std::nullopt, mLibrary.Find("DejaVuSans"));
}

TEST_F(FontLibraryTest, SelectionLimitsFind)
{
    const fs::path house = Copy("DejaVuSans", "House");
    Copy("DejaVuSerif", "Housework");
    mLibrary.Refresh();
    mLibrary.SetSelection(mHome.GetLibrary() / "House");
    EXPECT_EQ(house, mLibrary.Find("DejaVuSans"));
    EXPECT_EQ(std::nullopt, mLibrary.Find("DejaVuSerif"));
    EXPECT_NE(std::nullopt, mLibrary.FindAnywhere("DejaVuSerif"));
    mLibrary.SetSelection("");
    EXPECT_NE(std::nullopt, mLibrary.Find("DejaVuSerif"));
}

TEST_F(FontLibraryTest, ListsTheFileToUseOfEachName)
{
    const fs::path house = Copy("DejaVuSans", "House");
    const fs::path newer = Copy("DejaVuSans");
    fs::last_write_time(house, fs::last_write_time(newer) - std::chrono::hours(1));
    const fs::path serif = Copy("DejaVuSerif");
    mLibrary.Refresh();
    const auto list = [this] {
        std::vector<std::string> files;
        for (const auto& font : mLibrary.ListNamedFiles()) {
            files.push_back(font.postScriptName + " " + font.path);
        }
        return files;
    };
    EXPECT_THAT(list(), testing::ElementsAre("DejaVuSans " + newer.string(),
                                             "DejaVuSerif " + serif.string()));
    mLibrary.SetSelection(mHome.GetLibrary() / "House");
    EXPECT_THAT(list(), testing::ElementsAre("DejaVuSans " + house.string(),
                                             "DejaVuSerif " + serif.string()));
}

// SQLite asks the authorizer while it compiles a statement.
TEST_F(FontLibraryTest, StatementsAreCompiledOnce)
{
    int compiled = 0;
    const auto count = [](void* sum, int, const char*, const char*, const char*, const char*) {
        ++*static_cast<int*>(sum);
        return SQLITE_OK;
    };
    (void)sqlite3_set_authorizer(mDatabase.GetConnection(), count, &compiled);
    (void)mLibrary.Find("DejaVuSans");
    const int once = compiled;
    EXPECT_LT(0, once);
    (void)mLibrary.Find("DejaVuSerif");
    EXPECT_EQ(once, compiled);
}

TEST_F(FontLibraryTest, AStatementThatIsUsedAgainHasNoParametersOfTheFirstUse)
{
    const std::string sql = "SELECT ifnull(?, 'none'), ifnull(?, 'none')";
    plugincore::Statement(mDatabase, sql).Bind("a").Bind("b").Run();
    plugincore::Statement second(mDatabase, sql);
    plugincore::Statement atTheSameTime(mDatabase, sql);
    ASSERT_TRUE(second.Bind("c").Step());
    ASSERT_TRUE(atTheSameTime.Bind("d").Step());
    EXPECT_EQ("c", second.GetText(0));
    EXPECT_EQ("none", second.GetText(1));
    EXPECT_EQ("d", atTheSameTime.GetText(0));
}

TEST_F(FontLibraryTest, ListsNamesInPages)
{
    for (const char* name : {"DejaVuSerif", "DejaVuSans", "DejaVuSansMono"}) Copy(name, "House");
    Copy("DejaVuSans-Bold");
    mLibrary.Refresh();
    const std::string house = mHome.GetLibrary() / "House";
    EXPECT_EQ(4, mLibrary.CountNames(""));
    EXPECT_EQ(3, mLibrary.CountNames(house));
    EXPECT_THAT(mLibrary.ListNames(house, 1, 5),
                testing::ElementsAre("DejaVuSansMono", "DejaVuSerif"));
    EXPECT_THAT(mLibrary.ListNames("", 0, 1), testing::ElementsAre("DejaVuSans"));
}

}  // namespace
