#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plugincore {

// A font file as the folder shows it, without looking into it.
struct FontFileState {
    std::string path;
    int64_t modified = 0;  // nanoseconds since 1970
    int64_t size = 0;      // bytes
};

// All regular files below `folder` that are fonts by their extension, whatever its case. Folders
// that can't be read are left out; a folder that isn't there has none.
std::vector<FontFileState> ListFontFiles(const std::string& folder);

// The folder itself and all folders below it, in which ListFontFiles looks. Links to folders are
// followed for `folder` alone.
std::vector<std::string> ListFolders(const std::string& folder);

}  // namespace plugincore
