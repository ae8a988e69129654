#include "plugin-core/library/FontFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace plugincore {
namespace {

bool IsFontByExtension(const char* name)
{
    static constexpr std::array<const char*, 8> kExtensions = {".ttf", ".otf", ".ttc",   ".otc",
                                                               ".pfb", ".pfa", ".dfont", ".woff"};
    // A file that is called ".ttf" has no extension.
    const size_t dot = std::string_view(name).rfind('.');
    if (dot == std::string_view::npos || dot == 0) return false;
    return std::any_of(kExtensions.begin(), kExtensions.end(), [&](const char* extension) {
        return strcasecmp(name + dot, extension) == 0;
    });
}

using Folder = std::unique_ptr<DIR, int (*)(DIR*)>;

// Not base's lists: a large library is walked at each start of the host, so that each file must
// cost one system call.
Folder OpenFolder(const std::string& path) { return {opendir(path.c_str()), closedir}; }

bool IsFolder(DIR* folder, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat status = {};
    return fstatat(dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(status.st_mode);
}

std::string Join(const std::string& folder, const char* name)
{
    return !folder.empty() && folder.back() == '/' ? folder + name : folder + "/" + name;
}

// Calls `visit` for each entry that isn't a folder, with its open folder and that one's path.
// Returns the folders.
template <class Visit>
std::vector<std::string> Walk(const std::string& root, Visit visit)
{
    std::vector<std::string> folders = {root};
    for (size_t position = 0; position < folders.size(); ++position) {
        const std::string path = folders[position];
        // A folder that can't be read doesn't end the search of the others.
        const Folder folder = OpenFolder(path);
        if (!folder) continue;
        while (const dirent* const entry = readdir(folder.get())) {
            const std::string_view name = entry->d_name;
            if (name == "." || name == "..") continue;
            if (IsFolder(folder.get(), *entry)) {
                folders.push_back(Join(path, entry->d_name));
            } else {
                visit(folder.get(), path, entry->d_name);
            }
        }
    }
    return folders;
}

int64_t GetModified(const struct stat& status)
{
    constexpr int64_t kNanosecondsPerSecond = 1000000000;
    return status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
}

}  // namespace

std::optional<FontFileState> LookAtFontFile(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return FontFileState{path, GetModified(status), status.st_size};
}

std::vector<FontFileState> ListFontFiles(const std::string& folder)
{
    std::vector<FontFileState> files;
    const auto add = [&files](DIR* parent, const std::string& path, const char* name) {
        struct stat status = {};
        if (!IsFontByExtension(name) || fstatat(dirfd(parent), name, &status, 0) != 0 ||
            !S_ISREG(status.st_mode)) {
            return;
        }
        files.push_back({Join(path, name), GetModified(status), status.st_size});
    };
    (void)Walk(folder, add);  // the folders aren't needed here
    return files;
}

std::vector<std::string> ListFolders(const std::string& folder)
{
    return Walk(folder, [](DIR*, const std::string&, const char*) {});
}

}  // namespace plugincore
