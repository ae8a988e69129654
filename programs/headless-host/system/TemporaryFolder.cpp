#include "system/TemporaryFolder.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace headless {

namespace {

namespace fs = std::filesystem;

// Folders whose permissions were taken away cannot be emptied by their owner.
void PermitDeletion(const fs::path& folder)
{
    std::error_code ignored;  // what fails here fails in the deletion as well
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::directory_iterator entry(folder, ignored);
    for (; !ignored && entry != fs::directory_iterator(); entry.increment(ignored)) {
        std::error_code unknown;  // as above
        if (entry->symlink_status(unknown).type() == fs::file_type::directory) {
            PermitDeletion(entry->path());
        }
    }
}

// Whether this process may create files in the folder, and load them as modules.
bool IsUsable(const char* folder)
{
    struct statvfs system = {};
    return access(folder, W_OK | X_OK) == 0 && statvfs(folder, &system) == 0 &&
           (system.f_flag & ST_NOEXEC) == 0;
}

}  // namespace

TemporaryFolder::TemporaryFolder(Place place)
{
    constexpr char kMemory[] = "/dev/shm";
    std::error_code error;
    const bool isInMemory =
        place == Place::kInMemory && std::getenv("TMPDIR") == nullptr && IsUsable(kMemory);
    const fs::path above = isInMemory ? fs::path(kMemory) : fs::temp_directory_path(error);
    if (error) throw std::runtime_error("no folder for temporary files: " + error.message());
    std::string pattern = fs::absolute(above / "headless-host-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error(pattern + ": cannot be created: " + std::strerror(errno));
    }
    mPath = pattern;
}

TemporaryFolder::~TemporaryFolder() { DeleteFolder(mPath); }

void DeleteFolder(const std::string& folder)
{
    std::error_code error;
    (void)fs::remove_all(folder, error);  // returns how many were deleted
    if (!error) return;
    PermitDeletion(folder);
    (void)fs::remove_all(folder, error);
}

}  // namespace headless
