#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "FontTestHome.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using plugincore::Database;
using plugincore::FontLibrary;
using plugincore::Services;
using plugincore::Statement;
using testing::ElementsAre;

namespace {

// Makes a database of version 5 of the present one: without what version 6 has added.
constexpr const char* kToVersion5 =
    "DROP TRIGGER font_face_without_family; ALTER TABLE font_face DROP COLUMN family;"
    "ALTER TABLE font_face DROP COLUMN style; ALTER TABLE font_face DROP COLUMN weight;"
    "ALTER TABLE font_face DROP COLUMN format; PRAGMA user_version = 5;";

std::vector<std::string> ListFamilies(Database& database)
{
    Statement statement(database,
                        "SELECT name || '/' || ifnull(family, '?') || '/' || ifnull(style, '?') ||"
                        " '/' || weight || '/' || format FROM font_face ORDER BY name");
    std::vector<std::string> families;
    while (statement.Step()) families.push_back(statement.GetText(0));
    return families;
}

class FontIndexTest : public testing::Test {
protected:
    FontIndexTest()
    {
        FontTestHome::CopyFont("DejaVuSans-Bold", mHome.GetLibrary());
        FontTestHome::CopyFont("DejaVuSerif", mHome.GetLibrary() / "House");
    }

    FontTestHome mHome;
    fs::path mFile = plugincore::GetLocations().database;
};

constexpr const char* kBold = "DejaVuSans-Bold/DejaVu Sans/Bold/700/TrueType";
constexpr const char* kSerif = "DejaVuSerif/DejaVu Serif/Book/400/TrueType";

TEST_F(FontIndexTest, HasWhatTheFilesSayOfEachFace)
{
    Database database(mFile);
    FontLibrary(database, {mHome.GetLibrary()}).Refresh();
    EXPECT_THAT(ListFamilies(database), ElementsAre(kBold, kSerif));
}

TEST_F(FontIndexTest, FindsThePresentFaceWithoutReadingItsFile)
{
    Database database(mFile);
    FontLibrary library(database, {mHome.GetLibrary()});
    library.Refresh();
    const fs::path file = mHome.GetLibrary() / "DejaVuSans-Bold.ttf";
    FontTestHome::DamageUnnoticed(file);
    const auto found = library.FindPresent("DejaVuSans-Bold");
    ASSERT_TRUE(found);
    EXPECT_EQ(file, found->path);
    EXPECT_EQ("DejaVu Sans", found->face.family);
    EXPECT_EQ("Bold", found->face.style);
    EXPECT_EQ(700, found->face.weight);
    EXPECT_EQ("TrueType", found->face.format);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(1));
    EXPECT_FALSE(library.FindPresent("DejaVuSans-Bold"));
    fs::remove(file);
    EXPECT_FALSE(library.FindPresent("DejaVuSans-Bold"));
    EXPECT_FALSE(library.FindPresent("Nowhere"));
}

TEST_F(FontIndexTest, KnowsOnlyFilesOfItsOwnFolders)
{
    Database database(mFile);
    const fs::path file = mHome.GetLibrary() / "DejaVuSans-Bold.ttf";
    FontLibrary library(database, {mHome.GetLibrary()});
    library.Refresh();
    const auto names = library.FindFaceNames(file, "DejaVuSans-Bold");
    ASSERT_TRUE(names);
    EXPECT_EQ("DejaVu Sans", names->family);
    EXPECT_EQ("Bold", names->style);
    EXPECT_FALSE(library.FindFaceNames(file, "DejaVuSerif"));
    library.SetFolders({mHome.GetLibrary() / "House"});
    EXPECT_FALSE(library.FindFaceNames(file, "DejaVuSans-Bold"));
}

// The user may have added what the environment names as well, or a folder inside of it.
TEST_F(FontIndexTest, AFolderNamedTwiceOrInsideOfAnotherIsReadOnce)
{
    Database database(mFile);
    const std::string root = mHome.GetLibrary();
    FontLibrary library(database, {root, root + "/House", root});
    library.Refresh();
    EXPECT_EQ(3, library.GetCounts().filesRead);
    library.Refresh();
    EXPECT_EQ(0, library.GetCounts().filesRead);
    EXPECT_EQ(0, library.GetCounts().filesGone);
    EXPECT_EQ(2, library.GetCounts().names);
}

// What users have in a database: fonts that they activated, and their libraries.
void MakeOldDatabase(const fs::path& added)
{
    Services services(plugincore::GetLocations());
    (void)services.Start();  // there is nothing to repair
    EXPECT_TRUE(services.folders.Add(added));
    services.folders.Select(added);
    services.activation.Activate("/a.ai", {"DejaVuSerif"});
    services.database.Execute(kToVersion5);
}

void ExpectThatUsersHaveTheirs(Services& services, const fs::path& added)
{
    EXPECT_EQ(added, services.folders.GetSelected());
    EXPECT_EQ(2U, services.folders.GetFolders().size());
    EXPECT_THAT(services.activation.GetHeld("/a.ai"), ElementsAre("DejaVuSerif"));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSerif"));
}

TEST_F(FontIndexTest, AnOlderDatabaseIsTakenOver)
{
    const fs::path added = mHome.GetPath() / "added";
    fs::create_directory(added);
    MakeOldDatabase(added);
    Services services(plugincore::GetLocations());
    // Before the files are read, names are found as before.
    services.ApplyLibraryChoice();
    EXPECT_TRUE(services.library.FindAnywhere("DejaVuSerif"));
    EXPECT_EQ("DejaVu Serif", services.library.FindPresent("DejaVuSerif").value().face.family);
    (void)services.Start();  // the list of repairs isn't needed here
    EXPECT_EQ(2, services.library.GetCounts().filesRead);
    EXPECT_THAT(ListFamilies(services.database), ElementsAre(kBold, kSerif));
    ExpectThatUsersHaveTheirs(services, added);
    services.library.Refresh();
    EXPECT_EQ(0, services.library.GetCounts().filesRead);
}

// A program that takes the database over is killed at the commit of the new tables, and the next
// one at that of the index.
TEST_F(FontIndexTest, TakingOverSurvivesAKill)
{
    const fs::path added = mHome.GetPath() / "added";
    fs::create_directory(added);
    MakeOldDatabase(added);
    for (const int commit : {1, 2, 3, 4}) {
        const pid_t child = fork();
        if (child == 0) {
            static int sLeft = 0;
            sLeft = commit;
            // Called for each new connection.
            const auto extend = [](sqlite3* connection, char**, const sqlite3_api_routines*) {
                sqlite3_commit_hook(
                    connection, [](void*) { return --sLeft == 0 ? raise(SIGKILL) : 0; }, nullptr);
                return SQLITE_OK;
            };
            int (*const call)(sqlite3*, char**, const sqlite3_api_routines*) = extend;
            (void)sqlite3_auto_extension(reinterpret_cast<void (*)()>(call));
            Services services(plugincore::GetLocations());
            (void)services.Start();  // is killed
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        if (commit == 1) {
            ASSERT_TRUE(WIFSIGNALED(status));
            Database database(mFile, Database::Access::kReadOnly);
            EXPECT_EQ(5, database.GetVersion());
        }
    }
    Services services(plugincore::GetLocations());
    (void)services.Start();  // the list of repairs isn't needed here
    EXPECT_EQ("", services.database.FindDamage());
    EXPECT_THAT(ListFamilies(services.database), ElementsAre(kBold, kSerif));
    ExpectThatUsersHaveTheirs(services, added);
}

// A program of the older version may run on while the database is taken over.
TEST_F(FontIndexTest, WhatAnOlderProgramAddsIsReadAgain)
{
    Database database(mFile);
    FontLibrary library(database, {mHome.GetLibrary()});
    library.Refresh();
    database.Execute(
        "DELETE FROM font_face;"
        "INSERT INTO font_face(file, name, face_index, is_type1)"
        " SELECT id, 'DejaVuSerif', 0, 0 FROM font_file WHERE path LIKE '%Serif.ttf'");
    EXPECT_EQ("DejaVu Serif", library.FindPresent("DejaVuSerif").value().face.family);
    EXPECT_FALSE(
        library.FindFaceNames(mHome.GetLibrary() / "House/DejaVuSerif.ttf", "DejaVuSerif"));
    library.Refresh();
    EXPECT_EQ(1, library.GetCounts().filesRead);
    EXPECT_THAT(ListFamilies(database), ElementsAre(kSerif));
}

TEST_F(FontIndexTest, ANewerDatabaseIsOneClearLineForWritersAndReaders)
{
    Database(mFile).Execute("PRAGMA user_version = 1000");
    const auto expectLine = [this](const auto& open) {
        try {
            open();
            ADD_FAILURE() << "was opened";
        } catch (const plugincore::Failure& failure) {
            EXPECT_EQ(mFile.string() + ": was written by a newer version of this program",
                      std::string(failure.what()));
        }
    };
    expectLine([this] { Database database(mFile); });
    expectLine([this] { Database database(mFile, Database::Access::kReadOnly); });
}

}  // namespace
