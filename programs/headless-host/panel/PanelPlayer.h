#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace headless {

class PanelConnection;

// The result of PanelPlayer::Ask.
struct PanelAnswer {
    // Whether the port was received, the token accepted and each request answered; an answer may
    // be a refusal.
    bool ok = false;
    std::string error;                    // one line that names what failed; empty if ok
    int port = 0;                         // 0 if it was not received
    std::vector<nlohmann::json> answers;  // objects, one per request, in order, up to an error
    std::vector<nlohmann::json> events;   // received because of a subscription
};

// Acts as the panel: asks over the event bus for the port, connects to it, sends the token and then
// requests. Main thread only. The plug-in that answers must be loaded.
class PanelPlayer {
public:
    // The most ticks to wait for the port, for the answer to the token, and for each other answer.
    static constexpr int kMaximumTicks = 200;

    // `frameworksFolder` is the host's private frameworks folder.
    explicit PanelPlayer(std::string frameworksFolder);

    // Sends the requests in order, each after the answer to the one before, and closes the
    // connection.
    //
    // tick   performs a tick of the host, in which the plug-in's server works; called while waiting
    // Exceptions of `tick` pass through; the connection is closed then.
    PanelAnswer Ask(const std::vector<nlohmann::json>& requests, const std::function<void()>& tick);

    // The port in an event's data, which is exactly "<payload><number>12345</number></payload>",
    // with a number from 1 to 65535 without leading zeros. Nothing for any other text.
    static std::optional<int> ReadPort(const std::string& payload);

    // The path of the token file, from the environment at the time of the call. Empty if that names
    // no home.
    static std::string GetTokenFile();

private:
    std::string mFrameworksFolder;
};

}  // namespace headless
