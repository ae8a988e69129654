#include "plugin-core/library/FontFiles.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/Files.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

bool IsFontByExtension(const fs::path& path)
{
    static const std::array<const char*, 8> kExtensions = {".ttf", ".otf", ".ttc",   ".otc",
                                                           ".pfb", ".pfa", ".dfont", ".woff"};
    return std::find(kExtensions.begin(), kExtensions.end(), base::GetLowerExtension(path)) !=
           kExtensions.end();
}

// The entries of one folder. Not a recursive iterator, which would end the whole search at the
// first folder that can't be read.
std::vector<fs::directory_entry> ListEntries(const std::string& folder)
{
    std::vector<fs::directory_entry> entries;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        entries.push_back(*entry);
    }
    return entries;
}

// Calls `visit` for each entry that isn't a folder. Returns the folders.
template <class Visit>
std::vector<std::string> Walk(const std::string& root, Visit visit)
{
    std::vector<std::string> folders = {root};
    for (size_t position = 0; position < folders.size(); ++position) {
        for (const fs::directory_entry& entry : ListEntries(folders[position])) {
            std::error_code noStatus;
            if (fs::is_directory(entry.symlink_status(noStatus))) {
                folders.push_back(entry.path());
            } else {
                visit(entry.path());
            }
        }
    }
    return folders;
}

}  // namespace

std::vector<FontFileState> ListFontFiles(const std::string& folder)
{
    constexpr int64_t kNanosecondsPerSecond = 1000000000;
    std::vector<FontFileState> files;
    (void)Walk(folder, [&files](const fs::path& path) {  // the folders aren't needed here
        struct stat status = {};
        if (!IsFontByExtension(path) || stat(path.c_str(), &status) != 0 ||
            !S_ISREG(status.st_mode)) {
            return;
        }
        const int64_t modified =
            status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
        files.push_back({path, modified, status.st_size});
    });
    return files;
}

std::vector<std::string> ListFolders(const std::string& folder)
{
    return Walk(folder, [](const fs::path&) {});
}

}  // namespace plugincore
