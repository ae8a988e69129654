#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "plugin-core/library/LibraryWatch.h"
#include "plugin-core/panel/PanelFontFile.h"
#include "plugin-core/panel/PanelFontList.h"
#include "plugin-core/services/Services.h"

namespace plugincore {

// The requests and events of the panel's protocol, without the transport. docs/PANEL.md
// describes the protocol. [the thread of the services]
class PanelProtocol {
public:
    // The services have to outlive this object.
    explicit PanelProtocol(Services& services) : mServices(services), mFonts(services) {}

    struct Answer {
        std::string text;         // JSON
        bool subscribes = false;  // the client receives events from now on
    };

    // Serves one request. Errors are answers too; throws nothing.
    Answer Serve(const std::string& message);

    // Reads a part of a font file. Throws Failure.
    PanelFontPiece ReadFont(const std::string& id, uint64_t offset);

    // Makes the present state the one that TakeEvents compares with.
    void BeginEvents();

    // Returns the messages for changes of fonts, libraries and documents since the last call. Costs
    // one query, and a system call for each folder of the library, if nothing has changed. The
    // first call is BeginEvents unless that was called.
    std::vector<std::string> TakeEvents();

private:
    nlohmann::json ListLibraries();
    nlohmann::json ListFonts(const nlohmann::json& request);
    nlohmann::json Activate(const nlohmann::json& request);
    nlohmann::json Deactivate(const nlohmann::json& request);
    nlohmann::json AddLibrary(const nlohmann::json& request);
    nlohmann::json RemoveLibrary(const nlohmann::json& request);
    nlohmann::json SelectLibrary(const nlohmann::json& request);
    nlohmann::json ListDocuments();
    nlohmann::json ServeOperation(const std::string& operation, const nlohmann::json& request);
    std::string MakeMarkOfLibraries();

    Services& mServices;
    PanelFontList mFonts;
    LibraryWatch mWatch;  // of the folders in mWatched
    std::vector<std::string> mWatched;
    bool mHasBegun = false;
    std::string mMark;              // of the database at the last TakeEvents
    std::set<std::string> mActive;  // the names that were active then
    std::string mLibraries;         // the libraries and the index then
    std::string mDocuments;         // the holds of documents then
};

}  // namespace plugincore
