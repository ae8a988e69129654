#include "PanelScene.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "PlugPlugEvent.h"

namespace {

constexpr char kRequest[] = "com.corvanta.portnumberrequest";
constexpr char kResponse[] = "com.corvanta.portnumberresponse";

}  // namespace

PanelScene::PanelScene()
{
    std::filesystem::create_directory(mFolder + "/Corvanta");
    if (const char* const before = getenv("XDG_STATE_HOME")) mStateBefore = before;
    setenv("XDG_STATE_HOME", mFolder.c_str(), 1);
    WriteToken(token);
    server.answer = [this](const std::string& message) {
        const nlohmann::json request = nlohmann::json::parse(message);
        if (request == nlohmann::json{{"token", token}}) return welcome;
        if (server.messages.size() == 1) {
            server.Hang();
            return std::string("{\"ok\":false,\"error\":\"refused\"}\n");
        }
        return serve ? serve(request) : "{\"ok\":true}\n";
    };
    if (mBus.Add(kRequest, Requested, this) != 0) throw std::runtime_error("no bus");
}

PanelScene::~PanelScene()
{
    (void)mBus.Remove(kRequest, Requested, this);  // it was added
    if (mStateBefore) {
        setenv("XDG_STATE_HOME", mStateBefore->c_str(), 1);
    } else {
        unsetenv("XDG_STATE_HOME");
    }
}

headless::PanelAnswer PanelScene::Ask(const std::vector<nlohmann::json>& requests)
{
    headless::PanelPlayer player(frameworks);
    return player.Ask(requests, [this] {
        if (ticks++ == sendsAtTick) SendPort();
        server.Tick();
    });
}

void PanelScene::WriteToken(const std::string& bytes)
{
    std::ofstream(GetTokenFile(), std::ios::binary) << bytes;
}

void PanelScene::RemoveToken() { std::filesystem::remove(GetTokenFile()); }

void PanelScene::SendPort()
{
    const std::string data =
        payload ? *payload
                : "<payload><number>" + std::to_string(server.GetPort()) + "</number></payload>";
    const PlugPlugEvent event = {kResponse, csxs::event::kEventScopeApplication, "test", nullptr,
                                 data.c_str()};
    (void)mBus.Dispatch(&event);  // the panel's answer shows whether it was received
}

void PanelScene::Requested(const PlugPlugEvent*, void* context)
{
    auto* const self = static_cast<PanelScene*>(context);
    ++self->portRequests;
    if (self->answersRequests) self->SendPort();
}
