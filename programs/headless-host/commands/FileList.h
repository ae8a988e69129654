#pragma once

#include <string>
#include <vector>

namespace headless {

struct ListedFile {
    std::string path;
    std::string error;  // why it is known already that it can't be read; else empty
};

// The files that the user's paths stand for, in their order. A folder stands for the documents
// below it, told by their first bytes, sorted by path; links in it aren't followed. Without
// `recursive`, a folder is an error, and so is one that holds no document or can't be listed.
std::vector<ListedFile> ListFiles(const std::vector<std::string>& paths, bool recursive);

}  // namespace headless
