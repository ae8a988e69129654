#include "plugin-core/library/FontFiles.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

namespace fs = std::filesystem;

namespace plugincore {
namespace {

bool IsFontByExtension(const fs::path& path)
{
    static const std::array<const char*, 8> kExtensions = {".ttf", ".otf", ".ttc",   ".otc",
                                                           ".pfb", ".pfa", ".dfont", ".woff"};
    std::string extension = path.extension();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::find(kExtensions.begin(), kExtensions.end(), extension) != kExtensions.end();
}

// The entries of one folder. One that vanishes or can't be read has none, whatever becomes of the
// others.
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

// Calls `visit` with each entry that is no folder; returns the folders.
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
    (void)Walk(folder, [&files](const fs::path& path) {  // which folders there are isn't asked for
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
