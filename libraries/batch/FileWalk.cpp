#include "batch/FileWalk.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <ios>
#include <system_error>
#include <utility>

#include "documents/model/FileKind.h"

namespace batch {

namespace {

namespace fs = std::filesystem;

bool IsDocument(const std::string& path)
{
    constexpr std::streamsize kHeadBytes = 1024;
    std::string head(kHeadBytes, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), kHeadBytes);
    head.resize(static_cast<size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return documents::GetContainer(head) != documents::Container::kNone;
}

std::string Join(const std::string& folder, const std::string& name)
{
    return fs::path(folder) / name;
}

}  // namespace

FileWalk::FileWalk(FileChoice choice) : mChoice(std::move(choice)) {}

size_t FileWalk::GetTotal() const
{
    return mChoice.isRecursive || !mChoice.listFile.empty() ? 0 : mChoice.paths.size();
}

bool FileWalk::Next(ListedFile& file)
{
    file = {};
    while (!NextInFolders(file)) {
        std::string path;
        if (!mChoice.listFile.empty() && mNextPath == mChoice.paths.size() && OpenList(file)) {
            return true;
        }
        if (!TakePath(path)) return false;
        std::error_code ignored;  // the reader reports a path that cannot be examined
        if (!fs::is_directory(path, ignored)) {
            file.path = std::move(path);
            return true;
        }
        if (!mChoice.isRecursive) {
            file = {std::move(path), "is a folder; use --recursive to read it"};
            return true;
        }
        mTop = path;
        mHasFound = false;
        if (!Enter(path, file.error)) {
            file.path = std::move(path);
            return true;
        }
    }
    return true;
}

bool FileWalk::TakePath(std::string& path)
{
    if (mNextPath < mChoice.paths.size()) {
        path = mChoice.paths[mNextPath++];
        return true;
    }
    while (mIsListOpen && std::getline(mList, path)) {
        if (!path.empty()) return true;
    }
    return false;
}

// Opens the list of paths unless it is open. Returns true if that is impossible.
bool FileWalk::OpenList(ListedFile& file)
{
    if (mIsListOpen) return false;
    mIsListOpen = true;
    std::error_code error;
    if (mChoice.listFile == "-") {
        mList.open("/dev/stdin");
    } else if (fs::is_directory(mChoice.listFile, error)) {
        mList.setstate(std::ios::failbit);  // opening a folder succeeds, reading it is silent
    } else {
        mList.open(mChoice.listFile);
    }
    if (mList) return false;
    file = {mChoice.listFile, "cannot be read as a list of files"};
    return true;
}

// Lists a folder and makes it the present one. Returns false and sets `error` if that fails.
bool FileWalk::Enter(const std::string& path, std::string& error)
{
    Folder folder{path, {}};
    std::error_code failure;
    fs::directory_iterator entry(path, failure);
    while (!failure && entry != fs::directory_iterator()) {
        std::error_code ignored;  // an entry that cannot be examined is no document
        const fs::file_type type = entry->symlink_status(ignored).type();
        if (type == fs::file_type::directory) {
            folder.names.push_back(entry->path().filename().string() + "/");
        } else if (type == fs::file_type::regular) {
            folder.names.push_back(entry->path().filename().string());
        }
        entry.increment(failure);
    }
    if (failure) {
        error = "cannot be listed: " + failure.message();
        return false;
    }
    std::sort(folder.names.begin(), folder.names.end(), std::greater<>());
    mFolders.push_back(std::move(folder));
    return true;
}

bool FileWalk::NextInFolders(ListedFile& file)
{
    while (!mFolders.empty()) {
        Folder& folder = mFolders.back();
        if (folder.names.empty()) {
            const bool isTop = mFolders.size() == 1;
            mFolders.pop_back();
            if (!isTop || mHasFound) continue;
            file = {mTop, "contains no document"};
            return true;
        }
        std::string name = std::move(folder.names.back());
        folder.names.pop_back();
        const bool isFolder = name.back() == '/';
        if (isFolder) name.pop_back();
        const std::string path = Join(folder.path, name);
        if (isFolder) {
            std::string error;
            if (Enter(path, error) || !mChoice.reportsSubfolders) continue;
            file = {path, std::move(error)};
        } else if (IsDocument(path)) {
            file = {path, {}};
        } else {
            continue;
        }
        mHasFound = true;
        return true;
    }
    return false;
}

}  // namespace batch
