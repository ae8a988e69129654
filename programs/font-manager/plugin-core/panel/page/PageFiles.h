#pragma once

#include <string_view>

namespace plugincore {

// A file of the panel's page, which is compiled into the program.
struct PageFile {
    std::string_view path;         // of the request, such as "/panel.js"
    std::string_view contentType;  // for the header Content-Type
    std::string_view body;
};

// Returns the file with exactly this path, or nullptr. "/" is the page itself. The files contain
// nothing secret. Thread-safe.
const PageFile* FindPageFile(std::string_view path);

}  // namespace plugincore
