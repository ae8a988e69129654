#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace plugincore {

// A font file with what the file system knows about it.
struct FontFileState {
    std::string path;
    int64_t modified = 0;  // nanoseconds since 1970
    int64_t size = 0;      // bytes
};

// Returns the state of one regular file, or of that to which a symbolic link leads. Returns nothing
// if there is none.
std::optional<FontFileState> LookAtFontFile(const std::string& path);

// Lists all regular files below `folder` that have a font's extension, in upper or lower case.
// Symbolic links to files are followed. Folders that are missing or can't be read are ignored.
std::vector<FontFileState> ListFontFiles(const std::string& folder);

// Lists `folder` and all folders below it, as ListFontFiles searches them. Symbolic links to
// folders are ignored, except `folder` itself.
std::vector<std::string> ListFolders(const std::string& folder);

}  // namespace plugincore
