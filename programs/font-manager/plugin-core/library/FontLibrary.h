#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "plugin-core/storage/Database.h"

namespace plugincore {

// The fonts that can be activated: those in the library folders, indexed by PostScript name.
//
// The index lies in the database and is brought up to date by comparing modification time and size
// of each file, so that only what is new or changed is read. Folders are searched to any depth;
// links to files are followed, links to folders aren't. A file counts as a font by its extension.
class FontLibrary {
public:
    // `folders` are absolute. The database has to outlive this object.
    FontLibrary(Database& database, std::vector<std::string> folders);

    struct Counts {
        int64_t files = 0;      // font files of use
        int64_t names = 0;      // different PostScript names
        int64_t badFiles = 0;   // skipped; they aren't read again until they change
        int64_t filesRead = 0;  // by the last Refresh
        int64_t filesGone = 0;  // taken out by the last Refresh
    };

    // Other folders from now on; to be indexed by the next Refresh.
    void SetFolders(std::vector<std::string> folders) { mFolders = std::move(folders); }

    // From now on fonts are taken from this folder and those below it alone; the empty text lifts
    // that.
    void SetSelection(std::string folder) { mSelection = std::move(folder); }
    const std::string& GetSelection() const { return mSelection; }

    // Makes the index equal to the folders. A folder or file that can't be read is no failure.
    void Refresh();

    // The file to take for a name: OpenType before Type 1, then the newest, then the first by path.
    std::optional<std::string> Find(const std::string& postScriptName);

    // The same, wherever in the folders it lies.
    std::optional<std::string> FindAnywhere(const std::string& postScriptName);

    // All files that have the name, wherever in the folders they lie, the one to take first.
    std::vector<std::string> ListFiles(const std::string& postScriptName);

    // Names that differ from this one by case, blanks and hyphens alone.
    std::vector<std::string> ListSimilarNames(const std::string& postScriptName);

    struct BadFile {
        std::string path;
        std::string problem;
    };
    std::vector<BadFile> ListBadFiles();

    // The names in a folder and those below it, or in all folders if it is empty, in ascending
    // order: at most `limit` of them from position `offset`.
    std::vector<std::string> ListNames(const std::string& folder, int64_t offset, int64_t limit);
    int64_t CountNames(const std::string& folder);

    // All names that a file in the index answers to.
    std::vector<std::string> GetNamesInFile(const std::string& path);

    Counts GetCounts();
    const std::vector<std::string>& GetFolders() const { return mFolders; }

private:
    void RefreshFolder(const std::string& folder);
    std::optional<std::string> FindIn(const std::string& folder, const std::string& name);
    int64_t CountRows(const std::string& selectFromWhere);

    Database& mDatabase;
    std::vector<std::string> mFolders;
    std::string mSelection;
    int64_t mFilesRead = 0;
    int64_t mFilesGone = 0;
};

}  // namespace plugincore
