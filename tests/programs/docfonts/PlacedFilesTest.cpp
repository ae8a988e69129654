#include "docfonts/analysis/PlacedFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "ScratchFolder.h"

using namespace docfonts;

namespace {

class PlacedFilesTest : public testing::Test {
protected:
    PlacedFile Find(const std::string& path) const
    {
        return FindPlacedFile(folder.Path("job/a.ai"), path);
    }

    ScratchFolder folder;
    std::string beside = folder.Write("job/photo.jpg", "x");
    std::string below = folder.Write("job/links/logo.eps", "%!PS-Adobe-3.0 EPSF-3.0\n");
};

}  // namespace

TEST_F(PlacedFilesTest, IsFoundWhereTheDocumentSays)
{
    EXPECT_EQ(PlacedState::kFound, Find(beside).state);
    EXPECT_EQ(PlacedState::kFound, Find("links/logo.eps").state);
    EXPECT_EQ(below, Find("links/logo.eps").foundAt);
}

TEST_F(PlacedFilesTest, HasMovedIfItsNameIsBesideTheDocument)
{
    for (const char* path : {"/Volumes/Work/photo.jpg", "old/photo.jpg", "C:\\Work\\photo.jpg",
                             "Work:Job:photo.jpg"}) {
        EXPECT_EQ(PlacedState::kMoved, Find(path).state) << path;
        EXPECT_EQ(beside, Find(path).foundAt) << path;
        EXPECT_EQ(path, Find(path).path);
    }
}

TEST_F(PlacedFilesTest, IsMissingOtherwise)
{
    ASSERT_EQ(0, mkfifo(folder.Path("job/pipe").c_str(), 0600));
    for (const std::string path : {"gone.jpg", "", "/", "links", "links/", "pipe", "/dev/null",
                                   "logo.eps", "\\", "..", "."}) {
        EXPECT_EQ(PlacedState::kMissing, Find(path).state) << path;
        EXPECT_EQ("", Find(path).foundAt) << path;
    }
    EXPECT_EQ(PlacedState::kMissing, Find(std::string("photo.jpg\0", 10)).state);
}

TEST_F(PlacedFilesTest, IsADocumentByItsFirstBytes)
{
    ASSERT_EQ(0, mkfifo(folder.Path("job/pipe").c_str(), 0600));
    EXPECT_TRUE(IsDocumentFile(below));
    for (const std::string& path : {beside, folder.Path("job/pipe"), folder.Path("job"),
                                    folder.Path("none"), std::string("/dev/zero")}) {
        EXPECT_FALSE(IsDocumentFile(path)) << path;
    }
}
