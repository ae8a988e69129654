#pragma once

#include <functional>
#include <set>
#include <string>

#include "model/HostFonts.h"

namespace headless {

// The fonts of a host that replays a journal: those that are recorded.
class ReplayFonts : public FontSource {
public:
    std::set<std::string> ListActiveNames() override { return active; }
    std::string GetDefaultName(const std::string& language) override
    {
        return findDefault ? findDefault(language) : std::string();
    }
    std::map<std::string, documents::FontFile> ListFiles() override { return {}; }

    std::set<std::string> active;
    std::function<std::string(const std::string& language)> findDefault;
};

}  // namespace headless
