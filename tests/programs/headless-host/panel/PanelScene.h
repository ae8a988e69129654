#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "OpenFramework.h"
#include "PanelServer.h"
#include "ScratchFolder.h"
#include "panel/PanelPlayer.h"

// What a panel finds: a bus whose other end tells the server's port, a server, and a token in a
// state folder of the test's own. The environment is put back at the end.
class PanelScene {
public:
    PanelScene();
    ~PanelScene();
    PanelScene(const PanelScene&) = delete;
    PanelScene& operator=(const PanelScene&) = delete;

    // Plays the panel; each tick is one of the server's, too.
    headless::PanelAnswer Ask(const std::vector<nlohmann::json>& requests = {});

    void WriteToken(const std::string& bytes);
    void RemoveToken();
    std::string GetTokenFile() const { return mFolder + "/Corvanta/panel-token"; }

    PanelServer server;
    std::string frameworks = PLUG_PLUG_FRAMEWORKS;
    std::string token = std::string(64, 'a');
    int ticks = 0;         // of all asking
    int portRequests = 0;  // that the other end of the bus got

    // What the other end of the bus tells, the server's port if it isn't set; from which tick on it
    // tells of itself, and whether it answers requests.
    std::optional<std::string> payload;
    int tellsAtTick = -1;
    bool answersRequests = true;

    // What the server says to a right token.
    std::string welcome = "{\"ok\":true,\"protocol\":1}\n";

    // What it says to a request.
    std::function<std::string(const nlohmann::json& request)> serve;

private:
    void TellPort();
    static void Requested(const PlugPlugEvent* event, void* context);

    OpenFramework mBus{"PlugPlugOwl"};
    const ScratchFolder mScratch;
    const std::string mFolder = mScratch.Path();
    std::optional<std::string> mStateBefore;
};
