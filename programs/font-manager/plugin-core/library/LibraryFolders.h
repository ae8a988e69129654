#pragma once

#include <string>
#include <vector>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// A library is a folder directly below one of the root folders, or a folder that the user added.
// Hidden folders and links to folders are none. Fonts that lie in a root folder itself belong to no
// library.
struct Library {
    std::string name;  // of the folder
    std::string path;
};

// Those in the folders, by name and then by path, each once.
std::vector<Library> ListLibraries(const std::vector<std::string>& roots,
                                   const std::vector<std::string>& added);

// The folders that fonts are taken from, and the library that the user selected. Both choices of
// the user are kept in the database, for all processes.
class LibraryFolders {
public:
    // The database has to outlive this object.
    LibraryFolders(Database& database, std::vector<std::string> roots);

    // The root folders and those that were added.
    std::vector<std::string> GetFolders();
    std::vector<Library> List();

    // The library that fonts are taken from, empty for all of them. One that isn't there at the
    // moment counts as not selected.
    std::string GetSelected();

    // Selects a library; the empty text selects all.
    void Select(const std::string& path);

    // Adds a folder, as an absolute path; false if it is there already.
    bool Add(const std::string& path);

    const std::vector<std::string>& GetRoots() const { return mRoots; }

private:
    std::vector<std::string> GetAdded();

    Database& mDatabase;
    std::vector<std::string> mRoots;
};

}  // namespace plugincore
