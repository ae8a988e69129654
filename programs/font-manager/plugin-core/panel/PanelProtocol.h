#pragma once

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace plugincore {

// What the panel may ask for and what it is told, without the lines' transport. docs/PANEL.md has
// the whole protocol. Main thread.
class PanelProtocol {
public:
    // The services have to outlive this object.
    explicit PanelProtocol(Services& services) : mServices(services) {}

    struct Answer {
        std::string line;  // without the line feed
        bool subscribes = false;
    };

    // Serves one request. Whatever the line holds, there is an answer; nothing is thrown.
    Answer Serve(const std::string& line);

    // From now on TakeEvents tells what has changed.
    void BeginEvents();

    // A line for each thing that changed since the last call; cheap as long as nothing did.
    std::vector<std::string> TakeEvents();

    // Libraries came, went or were selected.
    void AnnounceLibraryChange() { mLibrariesChanged = true; }

private:
    nlohmann::json ListLibraries();
    nlohmann::json ListFonts(const nlohmann::json& request);
    nlohmann::json Activate(const nlohmann::json& request);
    nlohmann::json Deactivate(const nlohmann::json& request);

    Services& mServices;
    std::string mMark;
    std::set<std::string> mActive;
    bool mLibrariesChanged = false;
};

}  // namespace plugincore
