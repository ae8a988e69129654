#include "FontFiles.h"

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

}  // namespace

std::vector<FontFileState> ListFontFiles(const std::string& folder)
{
    std::vector<FontFileState> files;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           error);
    constexpr int64_t kNanosecondsPerSecond = 1000000000;
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        struct stat status = {};
        if (!IsFontByExtension(entry->path()) || stat(entry->path().c_str(), &status) != 0 ||
            !S_ISREG(status.st_mode))
            continue;
        const int64_t modified =
            status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
        files.push_back({entry->path(), modified, status.st_size});
    }
    return files;
}

}  // namespace plugincore
