#include "documents/write/WriteFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "base/DraftFile.h"
#include "documents/write/DraftRecord.h"

namespace documents {

namespace {

constexpr mode_t kNewFileMode = 0666;

std::string GetLastError() { return std::strerror(errno); }

mode_t GetNewFileMode()
{
    const mode_t mask = umask(0);
    (void)umask(mask);  // umask can be read only by setting it
    return kNewFileMode & ~mask;
}

}  // namespace

std::string ReplaceFile(const std::string& path, const std::string& bytes,
                        const std::string& recordFolder)
{
    struct stat status = {};
    const bool isThere = stat(path.c_str(), &status) == 0;
    if (!isThere && errno != ENOENT) return GetLastError();
    if (isThere && S_ISDIR(status.st_mode)) return "is a folder";
    if (isThere && !S_ISREG(status.st_mode)) return "is not a regular file";
    if (isThere && access(path.c_str(), W_OK) != 0) return GetLastError();
    std::string target = path;
    if (isThere) {
        char resolved[PATH_MAX];
        if (realpath(path.c_str(), resolved) == nullptr) return GetLastError();
        target = resolved;
    }
    const size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    const DraftRecord record(recordFolder, folder);
    base::DraftFile draft(record.GetPattern());
    std::error_code error = draft.Write(bytes, isThere ? status.st_mode & 07777 : GetNewFileMode());
    if (!error) error = draft.MoveTo(target);
    if (error) return error.message();
    base::SyncFolder(folder);
    return {};
}

}  // namespace documents
