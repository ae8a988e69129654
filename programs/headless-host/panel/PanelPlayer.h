#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace headless {

class PanelConnection;

// What came of playing the panel.
struct PanelAnswer {
    // The port was told, the token taken and each request answered, be it with a refusal of the
    // request. Otherwise `error` is one line that names what is at fault.
    bool ok = false;
    int port = 0;  // 0 until it was told
    std::vector<nlohmann::json>
        answers;  // objects, one per request, in order; those before an error
    std::string error;
    std::vector<nlohmann::json> events;  // what a subscription brought in the meantime
};

// The host plays the panel: it asks over the event bus for the port, connects to it, presents the
// token and sends its requests. Main thread only, and while the guest that answers is loaded.
class PanelPlayer {
public:
    // How often the host is made to tick for the port, for the token and for each answer.
    static constexpr int kMaximumTicks = 200;

    // `frameworksFolder` is the host's private frameworks folder.
    explicit PanelPlayer(std::string frameworksFolder);

    // Asks for the port once, and performs the requests in order, each when the one before was
    // answered; the connection is closed in the end. It is served in the host's ticks, so `tick`
    // must make the host do one; what it throws passes through, with everything closed.
    PanelAnswer Ask(const std::vector<nlohmann::json>& requests, const std::function<void()>& tick);

    // The port that an event's data tells: "<payload><number>12345</number></payload>" and nothing
    // more, with a number from 1 to 65535 without leading zeros. Nothing for any other text.
    static std::optional<int> ReadPort(const std::string& payload);

    // Where the token is, by the user's environment as it is at the call; empty without a home.
    static std::string GetTokenFile();

private:
    std::string mFrameworksFolder;
};

}  // namespace headless
