#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

namespace batch {

struct ListedFile {
    std::string path;
    std::string error;  // why the path cannot be read, if that is already known; else empty
};

// What the user's paths name.
struct FileChoice {
    std::vector<std::string> paths;
    std::string listFile;            // has more paths, one per line; "-" for standard input
    bool isRecursive = false;        // else a folder is an error
    bool reportsSubfolders = false;  // a subfolder that cannot be listed is an error, else skipped
};

// Goes through the files that the user's paths name, in the order of the paths. If the choice is
// recursive, a folder is replaced by the documents below it, sorted by path: the regular files
// whose first bytes are those of a document. Symbolic links in folders are not followed.
//
// A folder that isn't to be read, has no documents or cannot be listed gives one entry with an
// error. At any time only the entries of one folder per level are in memory.
class FileWalk {
public:
    explicit FileWalk(FileChoice choice);

    // Returns false after the last file.
    bool Next(ListedFile& file);

    // The number of files, or 0 if it isn't known before the end.
    size_t GetTotal() const;

private:
    struct Folder {
        std::string path;
        // Names from the last to the first, those of folders with a slash behind them: as parts of
        // whole paths they are in order.
        std::vector<std::string> names;
    };

    bool TakePath(std::string& path);
    bool NextInFolders(ListedFile& file);
    bool Enter(const std::string& path, std::string& error);
    bool OpenList(ListedFile& file);

    FileChoice mChoice;
    size_t mNextPath = 0;
    std::ifstream mList;
    bool mIsListOpen = false;
    std::vector<Folder> mFolders;  // from the outermost to the present one
    std::string mTop;              // the folder that the user named
    bool mHasFound = false;        // a document, or a fault that was reported, in mTop
};

}  // namespace batch
