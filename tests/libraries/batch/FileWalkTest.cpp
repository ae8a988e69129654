#include "batch/FileWalk.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ScratchFolder.h"
#include "WithoutRootRights.h"

using namespace batch;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

constexpr char kDocument[] = "%!PS-Adobe-3.0 EPSF-3.0\n";

class FileWalkTest : public testing::Test {
protected:
    void Write(const std::string& name, const std::string& bytes) const
    {
        const std::filesystem::path path = folder.Path() + "/" + name;
        std::filesystem::create_directories(path.parent_path());
        (void)folder.Write(name, bytes);
    }

    // The files with paths below the scratch folder, errors behind a colon.
    std::vector<std::string> List(std::vector<std::string> paths, bool isRecursive,
                                  const std::string& listFile = "") const
    {
        FileChoice choice;
        for (std::string& path : paths) choice.paths.push_back(folder.Path() + "/" + path);
        choice.isRecursive = isRecursive;
        choice.reportsSubfolders = true;
        if (!listFile.empty()) choice.listFile = folder.Path() + "/" + listFile;
        FileWalk walk(choice);
        std::vector<std::string> result;
        for (ListedFile file; walk.Next(file);) {
            const std::string path = file.path.substr(folder.Path().size() + 1);
            result.push_back(file.error.empty() ? path : path + ": " + file.error);
        }
        return result;
    }

    ScratchFolder folder;
};

}  // namespace

TEST_F(FileWalkTest, SortsByWholePath)
{
    for (const char* name : {"d/a/z.eps", "d/a.eps", "d/a-b/y.eps", "d/b.eps", "d/A.eps"}) {
        Write(name, kDocument);
    }
    EXPECT_THAT(List({"d"}, true),
                ElementsAre("d/A.eps", "d/a-b/y.eps", "d/a.eps", "d/a/z.eps", "d/b.eps"));
}

TEST_F(FileWalkTest, SkipsWhatIsNoDocumentAndNeverOpensAFifo)
{
    Write("d/text.pdf", "no document");
    Write("d/one", kDocument);
    ASSERT_EQ(0, mkfifo((folder.Path() + "/d/fifo.pdf").c_str(), 0600));
    EXPECT_THAT(List({"d"}, true), ElementsAre("d/one"));
}

TEST_F(FileWalkTest, FollowsNoLinkInAFolderSoThatACircleEnds)
{
    Write("d/e/one.eps", kDocument);
    std::filesystem::create_directory_symlink("..", folder.Path() + "/d/e/up");
    std::filesystem::create_symlink("one.eps", folder.Path() + "/d/e/two.eps");
    EXPECT_THAT(List({"d"}, true), ElementsAre("d/e/one.eps"));
}

TEST_F(FileWalkTest, KeepsTheOrderOfThePaths)
{
    Write("b.eps", kDocument);
    Write("a/c.eps", kDocument);
    EXPECT_THAT(List({"b.eps", "a", "missing"}, true), ElementsAre("b.eps", "a/c.eps", "missing"));
}

TEST_F(FileWalkTest, AFolderNeedsTheOption)
{
    Write("a/c.eps", kDocument);
    EXPECT_THAT(List({"a"}, false), ElementsAre("a: is a folder; use --recursive to read it"));
}

TEST_F(FileWalkTest, AFolderWithoutDocumentsIsAnError)
{
    Write("a/b/notes.txt", "nothing");
    Write("c/c.eps", kDocument);
    EXPECT_THAT(List({"a", "c"}, true), ElementsAre("a: contains no document", "c/c.eps"));
}

TEST_F(FileWalkTest, AFolderThatCannotBeListedIsAnError)
{
    Write("d/a/one.eps", kDocument);
    Write("d/b/two.eps", kDocument);
    std::filesystem::permissions(folder.Path() + "/d/a", std::filesystem::perms::none);
    std::vector<std::string> files;
    {
        const WithoutRootRights rights(folder.Path());
        files = List({"d"}, true);
    }
    std::filesystem::permissions(folder.Path() + "/d/a", std::filesystem::perms::owner_all);
    EXPECT_THAT(files, ElementsAre("d/a: cannot be listed: Permission denied", "d/b/two.eps"));
}

TEST_F(FileWalkTest, ReadsMorePathsFromAFile)
{
    const std::string start = folder.Path() + "/";
    Write("list", start + "x.eps\n\n" + start + "y z.eps");
    EXPECT_THAT(List({"first"}, false, "list"), ElementsAre("first", "x.eps", "y z.eps"));
}

TEST_F(FileWalkTest, AListThatCannotBeReadIsAnError)
{
    Write("d/a.eps", kDocument);
    EXPECT_THAT(List({}, false, "none"), ElementsAre("none: cannot be read as a list of files"));
    EXPECT_THAT(List({}, false, "d"), ElementsAre("d: cannot be read as a list of files"));
}
