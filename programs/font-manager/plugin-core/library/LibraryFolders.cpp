#include "plugin-core/library/LibraryFolders.h"

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace fs = std::filesystem;

namespace plugincore {
namespace {

constexpr const char* kSelected = "SelectedLibrary";

void AddSubfolders(const std::string& root, std::vector<Library>& libraries)
{
    std::error_code error;
    fs::directory_iterator entry(root, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        // The index doesn't follow links to folders, so a linked library would have no fonts.
        std::error_code noStatus;
        const std::string name = entry->path().filename();
        if (name[0] == '.' || !fs::is_directory(entry->symlink_status(noStatus))) continue;
        libraries.push_back({name, entry->path()});
    }
}

}  // namespace

std::vector<Library> ListLibraries(const std::vector<std::string>& roots,
                                   const std::vector<std::string>& added)
{
    std::vector<Library> libraries;
    for (const std::string& root : roots) AddSubfolders(root, libraries);
    for (const std::string& folder : added) {
        std::error_code error;
        if (fs::is_directory(folder, error)) {
            libraries.push_back({fs::path(folder).filename(), folder});
        }
    }
    std::sort(libraries.begin(), libraries.end(), [](const Library& left, const Library& right) {
        return std::tie(left.name, left.path) < std::tie(right.name, right.path);
    });
    const auto isSame = [](const Library& left, const Library& right) {
        return left.path == right.path;
    };
    libraries.erase(std::unique(libraries.begin(), libraries.end(), isSame), libraries.end());
    return libraries;
}

LibraryFolders::LibraryFolders(Database& database, std::vector<std::string> roots)
    : mDatabase(database), mRoots(std::move(roots))
{
}

std::vector<std::string> LibraryFolders::GetAdded()
{
    Statement statement(mDatabase, "SELECT path FROM added_folder ORDER BY path");
    std::vector<std::string> folders;
    while (statement.Step()) folders.push_back(statement.GetText(0));
    return folders;
}

std::vector<std::string> LibraryFolders::GetFolders()
{
    std::vector<std::string> folders = mRoots;
    for (const std::string& folder : GetAdded()) {
        if (std::find(folders.begin(), folders.end(), folder) == folders.end()) {
            folders.push_back(folder);
        }
    }
    return folders;
}

std::vector<Library> LibraryFolders::List() { return ListLibraries(mRoots, GetAdded()); }

std::string LibraryFolders::GetSelected()
{
    Statement statement(mDatabase, "SELECT value FROM choice WHERE name = ?");
    if (!statement.Bind(kSelected).Step()) return {};
    const std::string path = statement.GetText(0);
    // A folder on a disk that isn't mounted is kept as the choice, so it is back with the disk.
    std::error_code error;
    return fs::is_directory(path, error) ? path : std::string();
}

void LibraryFolders::Select(const std::string& path)
{
    Statement statement(mDatabase, "INSERT OR REPLACE INTO choice(name, value) VALUES(?, ?)");
    statement.Bind(kSelected).Bind(path).Run();
}

bool LibraryFolders::Add(const std::string& path)
{
    const std::vector<std::string> folders = GetFolders();
    if (std::find(folders.begin(), folders.end(), path) != folders.end()) return false;
    Statement(mDatabase, "INSERT OR IGNORE INTO added_folder(path) VALUES(?)").Bind(path).Run();
    return true;
}

bool LibraryFolders::Remove(const std::string& path)
{
    Statement statement(mDatabase, "DELETE FROM added_folder WHERE path = ? RETURNING path");
    const bool isRemoved = statement.Bind(path).Step();
    if (isRemoved) statement.Run();
    return isRemoved;
}

}  // namespace plugincore
