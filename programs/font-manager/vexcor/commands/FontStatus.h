#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace vexcor {

// All that is known of the font of one PostScript name.
struct FontStatus {
    struct Holder {
        std::string document;
        std::string program;  // "headless-host (process 12)"
    };

    std::string name;
    std::string state;   // "active" without Vexcor, "activated" through it, or "inactive"
    std::string reason;  // why it is so
    std::string file;    // that gives it, or would; empty if none is known
    std::vector<Holder> holders;
    std::vector<std::string> otherFiles;    // of the library, with the same name
    std::vector<std::string> similarNames;  // of the library, if no file has this very one
    std::vector<std::string> badFiles;      // that bear the name and can't be used, with the reason
};

using ActiveFiles = std::multimap<std::string, plugincore::Services::ActiveFile>;

// `active` is what fontconfig shows at this moment.
FontStatus ExplainFont(plugincore::Services& services, const ActiveFiles& active,
                       const std::string& name);

std::string WriteStatusAsText(const FontStatus& status);
std::string WriteStatusAsJson(const FontStatus& status);

}  // namespace vexcor
