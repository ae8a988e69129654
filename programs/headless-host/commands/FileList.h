#pragma once

#include <string>
#include <vector>

namespace headless {

struct ListedFile {
    std::string path;
    std::string error;  // why the path cannot be read, if that is already known; else empty
};

// The files that the user's paths name, in the order of the paths. With `recursive`, a folder is
// replaced by the documents below it, sorted by path: the regular files whose first bytes are those
// of a document. Symbolic links in folders are not followed.
//
// A folder without `recursive`, without documents, or that cannot be listed gives one entry with an
// error.
std::vector<ListedFile> ListFiles(const std::vector<std::string>& paths, bool recursive);

}  // namespace headless
