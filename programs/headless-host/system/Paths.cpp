#include "system/Paths.h"

#include <algorithm>
#include <filesystem>

namespace headless {

namespace {

namespace fs = std::filesystem;

}  // namespace

std::string GetProgramFolder()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().string();
}

std::string MakeAbsolute(const std::string& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

std::string MakeAbsolute(const std::string& folder, const std::string& path)
{
    return (fs::path(folder) / path).lexically_normal().string();
}

bool IsFolder(const std::string& path)
{
    std::error_code ignored;  // an entry that cannot be examined is no folder
    return fs::is_directory(path, ignored);
}

std::string GetListError(const std::string& folder)
{
    std::error_code error;
    const fs::directory_iterator entry(folder, error);
    return error ? error.message() : std::string();
}

std::vector<std::string> ListPaths(const std::string& folder, const std::string& start)
{
    const size_t slash = start.rfind('/');
    const std::string above = slash == std::string::npos ? "" : start.substr(0, slash + 1);
    const std::string name = start.substr(above.size());
    std::vector<std::string> paths;
    std::error_code error;  // no completions for a folder that cannot be listed
    for (fs::directory_iterator entry(fs::path(folder) / above, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string each = entry->path().filename().string();
        const bool isHidden = each[0] == '.' && name.empty();
        if (isHidden || each.rfind(name, 0) != 0) continue;
        std::error_code ignored;  // an entry that cannot be examined is listed as a file
        paths.push_back(above + each + (entry->is_directory(ignored) ? "/" : ""));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace headless
