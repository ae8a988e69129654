#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "fonts/FaceNames.h"
#include "fonts/FontFaces.h"
#include "plugin-core/storage/Database.h"

namespace plugincore {

// The fonts that can be activated: those in the library folders, indexed by PostScript name.
//
// The index is in the database, with all that fonts::FontFace has, so that only Refresh opens font
// files, each once. Refresh compares the modification time and size of each file, so
// that only new and changed files are read. FontFiles.h says which files these are. Errors of the
// database are thrown as Failure. [main-thread]
class FontLibrary {
public:
    // `folders` are absolute paths. The database has to outlive this object.
    FontLibrary(Database& database, std::vector<std::string> folders);

    struct Counts {
        int64_t files = 0;      // usable font files
        int64_t names = 0;      // different PostScript names
        int64_t badFiles = 0;   // unusable; not read again until they change
        int64_t filesRead = 0;  // read by the last Refresh
        int64_t filesGone = 0;  // removed from the index by the last Refresh
    };

    // Replaces the folders. The next Refresh indexes them.
    void SetFolders(std::vector<std::string> folders) { mFolders = std::move(folders); }

    // Limits Find to this folder and the folders below it; "" removes the limit.
    void SetSelection(std::string folder) { mSelection = std::move(folder); }
    const std::string& GetSelection() const { return mSelection; }

    // Updates the index. Folders and files that can't be read are no error. A file that can't be
    // read for lack of memory is a bad file until the next Refresh, which reads it again.
    void Refresh();

    // Returns the file to use for a name: OpenType before Type 1, then the newest one, then the
    // first by path.
    std::optional<std::string> Find(const std::string& postScriptName);

    // Returns the names for which Find returns a file, in their order.
    std::vector<std::string> SelectKnown(const std::vector<std::string>& postScriptNames);

    // As Find, in all folders, regardless of the selection.
    std::optional<std::string> FindAnywhere(const std::string& postScriptName);

    // Returns all files in all folders that have the name, the one to use first.
    std::vector<std::string> ListFiles(const std::string& postScriptName);

    struct PresentFace {
        std::string path;
        fonts::FontFace face;
    };

    // Returns the face of the first of these files that is still there and has the name. A file
    // that has changed since it was indexed, or is in an index of an older version, is read.
    std::optional<PresentFace> FindPresent(const std::string& postScriptName);

    // Returns what people call the face of this name in a file, or nothing if the index doesn't
    // have it.
    std::optional<fonts::FaceNames> FindFaceNames(const std::string& path,
                                                  const std::string& postScriptName);

    // Returns the names that differ from this one only in case, spaces and hyphens.
    std::vector<std::string> ListSimilarNames(const std::string& postScriptName);

    struct BadFile {
        std::string path;
        std::string problem;
    };
    std::vector<BadFile> ListBadFiles();

    struct NamedFile {
        std::string postScriptName;
        std::string path;  // as from Find, or else from FindAnywhere
    };

    // Returns all names in ascending order, in one query.
    std::vector<NamedFile> ListNamedFiles();

    // Returns the names in a folder and the folders below it, or in all folders for "", in
    // ascending order: at most `limit` names from position `offset`.
    std::vector<std::string> ListNames(const std::string& folder, int64_t offset, int64_t limit);
    int64_t CountNames(const std::string& folder);

    // Returns all names of a file in the index.
    std::vector<std::string> GetNamesInFile(const std::string& path);

    Counts GetCounts();
    const std::vector<std::string>& GetFolders() const { return mFolders; }

private:
    struct KnownFile {
        int64_t id;
        int64_t modified;
        int64_t size;
    };
    using KnownFiles = std::unordered_map<std::string, KnownFile>;  // by path

    // The files in the index, by folder.
    std::map<std::string, KnownFiles> LoadKnownFiles();
    void RefreshFolder(const std::string& folder, KnownFiles gone);
    void RemoveGone(const KnownFiles& gone);
    std::optional<std::string> FindIn(const std::string& folder, const std::string& name);
    int64_t CountRows(const std::string& selectFromWhere);

    Database& mDatabase;
    std::vector<std::string> mFolders;
    std::string mSelection;
    int64_t mFilesRead = 0;
    int64_t mFilesGone = 0;
};

}  // namespace plugincore
