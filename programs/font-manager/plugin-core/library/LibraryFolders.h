#pragma once

#include <string>
#include <vector>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// A library is a folder directly below one of the root folders, or a folder that the user added.
// Hidden folders and symbolic links aren't libraries. Fonts directly in a root folder belong to no
// library.
struct Library {
    std::string name;  // the last component of the path
    std::string path;
};

// Lists the libraries below `roots` and the folders `added` that exist, sorted by name and path,
// without duplicates.
std::vector<Library> ListLibraries(const std::vector<std::string>& roots,
                                   const std::vector<std::string>& added);

// The folders of the font library, and the library that the user selected. The folders that the
// user added and the selection are in the database, for all processes. Errors of the database are
// thrown as Failure. [main-thread]
class LibraryFolders {
public:
    // The database has to outlive this object.
    LibraryFolders(Database& database, std::vector<std::string> roots);

    // The root folders and the added folders.
    std::vector<std::string> GetFolders();

    // The libraries that exist now.
    std::vector<Library> List();

    // The path of the library that fonts are taken from; "" for all libraries. If the selected
    // library is missing now, "".
    std::string GetSelected();

    // Selects a library by its path; "" selects all.
    void Select(const std::string& path);

    // Adds a folder by its absolute path. Returns false if it is a library folder already.
    bool Add(const std::string& path);

    // Removes a folder that was added. Returns false if it wasn't.
    bool Remove(const std::string& path);

    const std::vector<std::string>& GetRoots() const { return mRoots; }

private:
    std::vector<std::string> GetAdded();

    Database& mDatabase;
    std::vector<std::string> mRoots;
};

}  // namespace plugincore
