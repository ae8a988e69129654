#pragma once

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace plugincore {

// The requests and events of the panel's protocol, without the transport of lines. docs/PANEL.md
// describes the protocol. [the thread of the services]
class PanelProtocol {
public:
    // The services have to outlive this object.
    explicit PanelProtocol(Services& services) : mServices(services) {}

    struct Answer {
        std::string line;         // without the line feed
        bool subscribes = false;  // the client receives events from now on
    };

    // Serves one request. Errors are answers too; throws nothing.
    Answer Serve(const std::string& line);

    // Makes the present state the one that TakeEvents compares with.
    void BeginEvents();

    // Returns the lines for changes of fonts since the last call. Costs one query if nothing has
    // changed.
    std::vector<std::string> TakeEvents();

private:
    nlohmann::json ListLibraries();
    nlohmann::json ListFonts(const nlohmann::json& request);
    nlohmann::json Activate(const nlohmann::json& request);
    nlohmann::json Deactivate(const nlohmann::json& request);

    Services& mServices;
    std::string mMark;              // of the database at the last TakeEvents
    std::set<std::string> mActive;  // the names that were active then
};

}  // namespace plugincore
