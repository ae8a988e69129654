#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "OpenFramework.h"
#include "PanelServer.h"
#include "ScratchFolder.h"
#include "panel/PanelPlayer.h"

// The surroundings of a panel: an event bus with a listener that sends the server's port, a server,
// and a token file in a state folder of the test's own. The destructor restores the environment.
class PanelScene {
public:
    PanelScene();
    ~PanelScene();
    PanelScene(const PanelScene&) = delete;
    PanelScene& operator=(const PanelScene&) = delete;

    // Acts as the panel; each tick is also one of the server.
    headless::PanelAnswer Ask(const std::vector<nlohmann::json>& requests = {});

    void WriteToken(const std::string& bytes);
    void RemoveToken();
    std::string GetTokenFile() const { return mFolder + "/Corvanta/panel-token"; }

    PanelServer server;
    std::string frameworks = PLUG_PLUG_FRAMEWORKS;
    std::string token = std::string(64, 'a');
    int ticks = 0;         // of all calls of Ask
    int portRequests = 0;  // received by the listener

    // What the listener sends (default: the server's port), the tick at which it sends it unasked
    // (-1: never), and whether it answers requests.
    std::optional<std::string> payload;
    int sendsAtTick = -1;
    bool answersRequests = true;

    // The server's answer to the right token.
    std::string welcome = "{\"ok\":true,\"protocol\":2}\n";

    // The server's answer to a request.
    std::function<std::string(const nlohmann::json& request)> serve;

private:
    void SendPort();
    static void Requested(const PlugPlugEvent* event, void* context);

    OpenFramework mBus{"PlugPlugOwl"};
    const ScratchFolder mScratch;
    const std::string mFolder = mScratch.Path();
    std::optional<std::string> mStateBefore;
};
