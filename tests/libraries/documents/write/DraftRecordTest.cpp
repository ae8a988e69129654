#include "documents/write/DraftRecord.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <vector>

#include "ScratchFolder.h"
#include "base/DraftFile.h"
#include "documents/write/WriteFile.h"

using documents::DeleteAbandonedDrafts;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

bool sHasLocks = true;

}  // namespace

// Takes the place of the C library's function in this program.
extern "C" int flock(int descriptor, int operation) noexcept
{
    if (sHasLocks) return static_cast<int>(syscall(SYS_flock, descriptor, operation));
    errno = ENOLCK;
    return -1;
}

namespace {

std::vector<std::string> ListNames(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename());
    }
    return names;
}

class DraftRecordTest : public testing::Test {
protected:
    DraftRecordTest() { std::filesystem::create_directory(documents); }

    // A process that is killed while it saves.
    void SaveAndBeKilled() const
    {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const documents::DraftRecord record(records, documents);
            const base::DraftFile draft(record.GetPattern());
            (void)raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_EQ(SIGKILL, WTERMSIG(status));
    }

    const ScratchFolder scratch;
    const std::string records = scratch.Path("state/saves");
    const std::string documents = scratch.Path("documents");
};

}  // namespace

TEST_F(DraftRecordTest, FileOfAKilledSaveIsDeletedAndNamed)
{
    SaveAndBeKilled();
    const std::vector<std::string> left = ListNames(documents);
    ASSERT_THAT(left, SizeIs(1));
    EXPECT_THAT(DeleteAbandonedDrafts(records), testing::ElementsAre(documents + "/" + left[0]));
    EXPECT_THAT(ListNames(documents), IsEmpty());
    EXPECT_THAT(ListNames(records), IsEmpty());
}

TEST_F(DraftRecordTest, OtherFilesStay)
{
    SaveAndBeKilled();
    (void)scratch.Write("documents/.saving-other", "user's own");
    (void)scratch.Write("documents/.save-XXXXXX", "user's own");
    EXPECT_THAT(DeleteAbandonedDrafts(records), SizeIs(1));
    EXPECT_THAT(ListNames(documents),
                testing::UnorderedElementsAre(".saving-other", ".save-XXXXXX"));
}

TEST_F(DraftRecordTest, FileOfALivingProcessStays)
{
    const documents::DraftRecord record(records, documents);
    const base::DraftFile draft(record.GetPattern());
    EXPECT_THAT(DeleteAbandonedDrafts(records), IsEmpty());
    EXPECT_THAT(ListNames(documents), SizeIs(1));
    EXPECT_THAT(ListNames(records), SizeIs(1));
}

TEST_F(DraftRecordTest, RecordStaysAsLongAsTheFolderCannotBeRead)
{
    SaveAndBeKilled();
    std::filesystem::rename(documents, scratch.Path("unmounted"));
    EXPECT_THAT(DeleteAbandonedDrafts(records), IsEmpty());
    std::filesystem::rename(scratch.Path("unmounted"), documents);
    EXPECT_THAT(DeleteAbandonedDrafts(records), SizeIs(1));
}

TEST_F(DraftRecordTest, ASaveLeavesNoRecord)
{
    EXPECT_EQ("", documents::ReplaceFile(documents + "/a.ai", "bytes", records));
    EXPECT_THAT(ListNames(documents), testing::ElementsAre("a.ai"));
    EXPECT_THAT(ListNames(records), IsEmpty());
}

TEST_F(DraftRecordTest, WithoutAPlaceForTheRecordTheFileIsSavedAllTheSame)
{
    const std::string file = scratch.Write("file", "");
    EXPECT_EQ("", documents::ReplaceFile(documents + "/a.ai", "bytes", file + "/saves"));
    EXPECT_EQ("", documents::ReplaceFile(documents + "/b.ai", "bytes"));
    EXPECT_THAT(ListNames(documents), testing::UnorderedElementsAre("a.ai", "b.ai"));
}

TEST_F(DraftRecordTest, WithoutLocksTheFileIsSavedWithoutARecord)
{
    sHasLocks = false;
    EXPECT_EQ("", documents::ReplaceFile(documents + "/a.ai", "bytes", records));
    EXPECT_THAT(DeleteAbandonedDrafts(records), IsEmpty());
    sHasLocks = true;
    EXPECT_THAT(ListNames(documents), testing::ElementsAre("a.ai"));
    EXPECT_THAT(ListNames(records), IsEmpty());
}

TEST_F(DraftRecordTest, MissingFolderOfRecordsIsNoError)
{
    EXPECT_THAT(DeleteAbandonedDrafts(records), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(records));
}
