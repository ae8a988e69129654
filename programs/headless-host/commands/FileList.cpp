#include "commands/FileList.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "documents/model/FileKind.h"

namespace headless {

namespace {

namespace fs = std::filesystem;

bool IsDocument(const fs::path& path)
{
    constexpr std::streamsize kHeadBytes = 1024;
    std::string head(kHeadBytes, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), kHeadBytes);
    head.resize(static_cast<size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return documents::GetContainer(head) != documents::Container::kNone;
}

void ListFolder(const std::string& folder, std::vector<ListedFile>& files)
{
    std::vector<std::string> found;
    std::error_code error;
    constexpr auto kOptions = fs::directory_options::skip_permission_denied;
    fs::recursive_directory_iterator entry(folder, kOptions, error);
    while (!error && entry != fs::recursive_directory_iterator()) {
        std::error_code ignored;  // an entry that cannot be examined is no document
        const bool isFile = entry->symlink_status(ignored).type() == fs::file_type::regular;
        if (isFile && IsDocument(entry->path())) found.push_back(entry->path().string());
        entry.increment(error);
    }
    std::sort(found.begin(), found.end());
    for (std::string& path : found) files.push_back({std::move(path), {}});
    if (error) {
        files.push_back({folder, "cannot be listed: " + error.message()});
    } else if (found.empty()) {
        files.push_back({folder, "contains no document"});
    }
}

}  // namespace

std::vector<ListedFile> ListFiles(const std::vector<std::string>& paths, bool recursive)
{
    std::vector<ListedFile> files;
    for (const std::string& path : paths) {
        std::error_code ignored;  // the reader reports a path that cannot be examined
        if (!fs::is_directory(path, ignored)) {
            files.push_back({path, {}});
        } else if (recursive) {
            ListFolder(path, files);
        } else {
            files.push_back({path, "is a folder; use --recursive to read it"});
        }
    }
    return files;
}

}  // namespace headless
