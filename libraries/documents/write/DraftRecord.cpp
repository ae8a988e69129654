#include "documents/write/DraftRecord.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "base/ReadWrite.h"
#include "base/Strings.h"

namespace fs = std::filesystem;

namespace documents {

namespace {

constexpr char kRecordPattern[] = "/save-XXXXXX";
constexpr int kMostAttempts = 3;  // some file systems have no locks

std::string GetDraftPrefix(const std::string& recordPath)
{
    return "." + fs::path(recordPath).filename().string() + "-";
}

// Locks the record unless another process has it locked.
bool Lock(const base::FileDescriptor& record)
{
    return record.IsValid() && flock(record.Get(), LOCK_EX | LOCK_NB) == 0;
}

// DeleteAbandonedDrafts of another process may delete a record before it is locked.
bool HasName(const base::FileDescriptor& record)
{
    struct stat status = {};
    return fstat(record.Get(), &status) == 0 && status.st_nlink > 0;
}

std::string ReadRecord(const base::FileDescriptor& record)
{
    std::string text(4096, '\0');  // PATH_MAX, the longest path that the constructor can be given
    const ssize_t length = read(record.Get(), text.data(), text.size());
    text.resize(length > 0 ? static_cast<size_t>(length) : 0);
    return text;
}

// Returns whether none is left.
bool DeleteDrafts(const std::string& folder, const std::string& prefix,
                  std::vector<std::string>& deleted)
{
    std::error_code error;
    bool isDone = true;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path path = entry->path();
        if (!base::StartsWith(path.filename().string(), prefix)) continue;
        if (unlink(path.c_str()) == 0) {
            deleted.push_back(path.string());
        } else {
            isDone = false;
        }
    }
    return isDone && !error;
}

}  // namespace

DraftRecord::DraftRecord(const std::string& recordFolder, const std::string& draftFolder)
    : mDraftFolder(draftFolder)
{
    if (recordFolder.empty()) return;
    std::error_code error;
    (void)fs::create_directories(recordFolder, error);  // an error shows when the file is made
    for (int attempt = 0; attempt < kMostAttempts && mPath.empty(); ++attempt) {
        std::string path = recordFolder + kRecordPattern;
        mFile = base::FileDescriptor(mkostemp(path.data(), O_CLOEXEC));
        if (!mFile.IsValid()) return;
        const bool isOurs = Lock(mFile) && HasName(mFile);
        // A part of the folder's path may name another folder.
        if (isOurs && !base::WriteAll(mFile.Get(), draftFolder)) {
            mPath = path;
        } else {
            (void)unlink(path.c_str());  // fails if another process has deleted it
        }
    }
}

DraftRecord::~DraftRecord()
{
    if (!mPath.empty()) (void)unlink(mPath.c_str());  // else the next start does it
}

std::string DraftRecord::GetPattern() const
{
    return mDraftFolder + "/" + (mPath.empty() ? ".saving-" : GetDraftPrefix(mPath)) + "XXXXXX";
}

std::vector<std::string> DeleteAbandonedDrafts(const std::string& recordFolder)
{
    std::vector<std::string> deleted;
    std::error_code error;
    for (fs::directory_iterator entry(recordFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string path = entry->path().string();
        const base::FileDescriptor record(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
        if (!Lock(record)) continue;
        const std::string folder = ReadRecord(record);
        if (folder.empty() || DeleteDrafts(folder, GetDraftPrefix(path), deleted)) {
            (void)unlink(path.c_str());  // else the next call does it
        }
    }
    return deleted;
}

}  // namespace documents
