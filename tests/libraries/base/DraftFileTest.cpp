#include "base/DraftFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "ScratchFolder.h"

namespace fs = std::filesystem;
using base::DraftFile;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DraftFileTest : public testing::Test {
protected:
    std::string GetPath(const std::string& name) const { return mFolder.Path(name); }

    std::string Read(const std::string& name) const
    {
        std::ifstream stream(GetPath(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    std::vector<std::string> List() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(mFolder.Path())) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    mode_t GetMode(const std::string& name) const
    {
        struct stat status = {};
        EXPECT_EQ(stat(GetPath(name).c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    ScratchFolder mFolder;
};

TEST_F(DraftFileTest, ItTakesThePlaceOfTheTarget)
{
    mFolder.Write("f", "old");
    {
        DraftFile draft(GetPath("f.XXXXXX"));
        EXPECT_FALSE(draft.Write("new bytes"));
        EXPECT_EQ(Read("f"), "old");
        EXPECT_FALSE(draft.MoveTo(GetPath("f")));
    }
    EXPECT_EQ(Read("f"), "new bytes");
    EXPECT_EQ(GetMode("f"), 0600U);
    EXPECT_THAT(List(), ElementsAre("f"));
}

TEST_F(DraftFileTest, ItsStartCanBeWrittenInPieces)
{
    DraftFile draft(GetPath("f.XXXXXX"));
    EXPECT_FALSE(draft.Append("one "));
    EXPECT_FALSE(draft.Append("two "));
    EXPECT_FALSE(draft.Write("three"));
    EXPECT_FALSE(draft.MoveTo(GetPath("f")));
    EXPECT_EQ(Read("f"), "one two three");
    DraftFile lost(GetPath("missing/f.XXXXXX"));
    EXPECT_EQ(lost.Append("x"), std::errc::no_such_file_or_directory);
}

TEST_F(DraftFileTest, TheUmaskDoesNotChangeTheMode)
{
    const mode_t before = umask(077);
    DraftFile draft(GetPath("f.XXXXXX"));
    EXPECT_FALSE(draft.Write("x", 0664));
    EXPECT_FALSE(draft.MoveTo(GetPath("f")));
    (void)umask(before);
    EXPECT_EQ(GetMode("f"), 0664U);
}

TEST_F(DraftFileTest, ALinkInThePlaceOfTheTargetIsReplaced)
{
    mFolder.Write("other", "other");
    fs::create_symlink("other", GetPath("f"));
    DraftFile draft(GetPath("f.XXXXXX"));
    EXPECT_FALSE(draft.Write("new"));
    EXPECT_FALSE(draft.MoveTo(GetPath("f")));
    EXPECT_FALSE(fs::is_symlink(GetPath("f")));
    EXPECT_EQ(Read("other"), "other");
}

TEST_F(DraftFileTest, WithoutAMoveNothingRemains)
{
    {
        DraftFile draft(GetPath("f.XXXXXX"));
        EXPECT_FALSE(draft.Write("new"));
        EXPECT_EQ(List().size(), 1U);
    }
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(DraftFileTest, AMoveThatFailsLeavesTheTarget)
{
    fs::create_directory(GetPath("f"));
    {
        DraftFile draft(GetPath("g.XXXXXX"));
        EXPECT_FALSE(draft.Write("new"));
        EXPECT_EQ(draft.MoveTo(GetPath("f")), std::errc::is_a_directory);
    }
    EXPECT_TRUE(fs::is_directory(GetPath("f")));
    EXPECT_THAT(List(), ElementsAre("f"));
}

TEST_F(DraftFileTest, ALinkIsMadeOnceOnly)
{
    {
        DraftFile draft(GetPath("f.XXXXXX"));
        EXPECT_FALSE(draft.Write("first"));
        EXPECT_FALSE(draft.LinkTo(GetPath("f")));
        DraftFile second(GetPath("f.XXXXXX"));
        EXPECT_FALSE(second.Write("second"));
        EXPECT_EQ(second.LinkTo(GetPath("f")), std::errc::file_exists);
    }
    EXPECT_EQ(Read("f"), "first");
    EXPECT_THAT(List(), ElementsAre("f"));
}

TEST_F(DraftFileTest, AFolderThatDoesNotExistIsAnErrorOfWrite)
{
    DraftFile draft(GetPath("none/f.XXXXXX"));
    EXPECT_EQ(draft.Write("x"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(draft.MoveTo(GetPath("f")), std::errc::no_such_file_or_directory);
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(DraftFileTest, APatternWithoutPlaceForANameIsAnError)
{
    DraftFile draft(GetPath("f"));
    EXPECT_EQ(draft.Write("x"), std::errc::invalid_argument);
}

// In a process of its own, which may not write files of more than 16 bytes.
TEST_F(DraftFileTest, AWriteThatFailsLeavesTheTarget)
{
    mFolder.Write("f", "old");
    const auto write = [this] {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit limit = {16, 16};
        (void)setrlimit(RLIMIT_FSIZE, &limit);
        std::error_code error;
        {
            DraftFile draft(GetPath("f.XXXXXX"));
            error = draft.Write(std::string(100, 'x'));
        }
        std::_Exit(error == std::errc::file_too_large ? 0 : 1);
    };
    EXPECT_EXIT(write(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(Read("f"), "old");
    EXPECT_THAT(List(), ElementsAre("f"));
}

TEST_F(DraftFileTest, SyncFolderIgnoresWhatIsNoFolder)
{
    base::SyncFolder(mFolder.Path());
    base::SyncFolder(GetPath("none"));
}

}  // namespace
