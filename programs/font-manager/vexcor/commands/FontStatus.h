#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace vexcor {

// Everything Vexcor knows about the font of one PostScript name.
struct FontStatus {
    struct Holder {
        std::string document;
        std::string program;  // "headless-host (process 12)"
    };

    std::string name;
    std::string state;   // "active" (without Vexcor), "activated" (by Vexcor) or "inactive"
    std::string reason;  // of the state
    std::string file;    // the file in use, or that would be used; empty if none is known
    std::vector<Holder> holders;
    std::vector<std::string> otherFiles;    // in the library, with the same name
    std::vector<std::string> similarNames;  // in the library, if no file there has this name
    std::vector<std::string> badFiles;      // unusable, with this file name; "PATH: reason"
};

// The document of all fonts that the user activated with `Vexcor activate`. Not the name of a
// document: those are full paths.
constexpr const char* kHeldByUser = "Vexcor activate";

// "DOCUMENT, open in PROGRAM" for a line of text.
std::string DescribeHolder(const FontStatus::Holder& holder);

using ActiveFiles = std::multimap<std::string, plugincore::Services::ActiveFile>;

// Explains the state of the font `name`. Throws Failure.
//
// active   the result of Services::ListActiveFiles
FontStatus ExplainFont(plugincore::Services& services, const ActiveFiles& active,
                       const std::string& name);

// Several lines, each with its end.
std::string WriteStatusAsText(const FontStatus& status);

// One JSON object on one line, with its end.
std::string WriteStatusAsJson(const FontStatus& status);

}  // namespace vexcor
