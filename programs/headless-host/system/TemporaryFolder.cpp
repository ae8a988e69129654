#include "system/TemporaryFolder.h"

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

}  // namespace

TemporaryFolder::TemporaryFolder()
{
    std::error_code error;
    const fs::path above = fs::temp_directory_path(error);
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
