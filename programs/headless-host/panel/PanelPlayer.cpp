#include "panel/PanelPlayer.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>

#include "panel/PanelBus.h"
#include "panel/PanelConnection.h"

namespace headless {

namespace {

constexpr std::size_t kTokenLength = 64;
constexpr int kHighestPort = 65535;

// How long to wait for data on the connection after a tick. The server prepares answers between
// ticks, so that the ticks of one wait have to last some time.
constexpr int kBetweenTicks = 10;  // milliseconds

// Thrown to end Ask with an error line.
struct Failure {
    std::string line;
};

// Received text for an error line: at most 80 bytes, printable ASCII only.
std::string Quote(const std::string& text)
{
    constexpr std::size_t kLongest = 80;
    std::string quoted = text.substr(0, kLongest);
    std::replace_if(
        quoted.begin(), quoted.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return "\"" + quoted + (text.size() > kLongest ? "\"..." : "\"");
}

std::string WithinTicks()
{
    return " within " + std::to_string(PanelPlayer::kMaximumTicks) + " ticks";
}

int AskForPort(const std::string& frameworksFolder, const std::function<void()>& tick)
{
    std::string error;
    const auto bus = PanelBus::Open(frameworksFolder, kPortResponseEvent, error);
    if (!bus || !bus->Send(kPortRequestEvent, error)) throw Failure{error};
    for (int count = 0; bus->GetReceived().empty(); ++count) {
        if (count == PanelPlayer::kMaximumTicks) {
            throw Failure{"no answer to " + std::string(kPortRequestEvent) + WithinTicks()};
        }
        tick();
    }
    const std::string& payload = bus->GetReceived().back();
    const std::optional<int> port = PanelPlayer::ReadPort(payload);
    if (!port) {
        throw Failure{std::string(kPortResponseEvent) +
                      " does not report a port: " + Quote(payload)};
    }
    return *port;
}

std::string ReadToken()
{
    const std::string file = PanelPlayer::GetTokenFile();
    if (file.empty()) {
        throw Failure{"cannot read the panel's token: neither XDG_STATE_HOME nor HOME is set"};
    }
    std::ifstream stream(file, std::ios::binary);
    // One byte more than a token, to recognize a longer file.
    std::string token(kTokenLength + 1, '\0');
    stream.read(token.data(), static_cast<std::streamsize>(token.size()));
    if (stream.bad() || !stream.is_open()) {
        throw Failure{"cannot read the panel's token: " + file};
    }
    token.resize(static_cast<std::size_t>(stream.gcount()));
    const bool isToken = token.size() == kTokenLength &&
                         std::all_of(token.begin(), token.end(),
                                     [](unsigned char c) { return std::isxdigit(c) != 0; });
    if (!isToken) throw Failure{"not a panel token: " + file};
    return token;
}

// Waits for the next object. `ticks` counts the ticks of all calls for one request, so that a
// server that sends events forever doesn't make the host wait forever.
nlohmann::json Receive(PanelConnection& connection, const std::string& awaited,
                       const std::function<void()>& tick, int& ticks)
{
    std::optional<std::string> message = connection.TakeMessage();
    while (!message && connection.GetError().empty()) {
        if (ticks++ == PanelPlayer::kMaximumTicks) {
            throw Failure{"no answer to " + awaited + WithinTicks()};
        }
        connection.Pump(0);
        tick();
        connection.Pump(kBetweenTicks);
        message = connection.TakeMessage();
    }
    if (!message) throw Failure{"no answer to " + awaited + ": " + connection.GetError()};
    nlohmann::json answer = nlohmann::json::parse(*message, nullptr, false);
    if (!answer.is_object()) {
        throw Failure{"the answer to " + awaited + " is not a JSON object: " + Quote(*message)};
    }
    return answer;
}

void PresentToken(PanelConnection& connection, const std::function<void()>& tick)
{
    connection.Queue(nlohmann::json{{"token", ReadToken()}}.dump());
    int ticks = 0;
    const nlohmann::json answer = Receive(connection, "the token", tick, ticks);
    const auto ok = answer.find("ok");
    if (ok == answer.end() || *ok != true) {
        throw Failure{"the panel's token was refused: " + Quote(answer.dump())};
    }
}

// The request as a message. `number`, from 1, is for the error line: a request that isn't UTF-8
// fails.
std::string Write(const nlohmann::json& request, std::size_t number)
{
    try {
        return request.dump();
    } catch (const nlohmann::json::exception& exception) {
        throw Failure{"request " + std::to_string(number) + ": " + exception.what()};
    }
}

}  // namespace

PanelPlayer::PanelPlayer(std::string frameworksFolder)
    : mFrameworksFolder(std::move(frameworksFolder))
{
}

PanelAnswer PanelPlayer::Ask(const std::vector<nlohmann::json>& requests,
                             const std::function<void()>& tick)
{
    PanelAnswer result;
    try {
        result.port = AskForPort(mFrameworksFolder, tick);
        const auto connection = PanelConnection::Open(result.port, result.error);
        if (!connection) return result;
        PresentToken(*connection, tick);
        while (result.answers.size() < requests.size()) {
            const std::size_t number = result.answers.size() + 1;
            connection->Queue(Write(requests[number - 1], number));
            const std::string awaited = "request " + std::to_string(number);
            int ticks = 0;
            nlohmann::json answer = Receive(*connection, awaited, tick, ticks);
            while (answer.contains("event")) {
                result.events.push_back(std::move(answer));
                answer = Receive(*connection, awaited, tick, ticks);
            }
            result.answers.push_back(std::move(answer));
        }
        result.ok = true;
    } catch (const Failure& failure) {
        result.error = failure.line;
    }
    return result;
}

std::optional<int> PanelPlayer::ReadPort(const std::string& payload)
{
    const std::string before = "<payload><number>";
    const std::string after = "</number></payload>";
    constexpr std::size_t kMostDigits = 5;
    if (payload.size() <= before.size() + after.size()) return std::nullopt;
    const std::size_t length = payload.size() - before.size() - after.size();
    if (length > kMostDigits || payload.compare(0, before.size(), before) != 0 ||
        payload.compare(before.size() + length, after.size(), after) != 0) {
        return std::nullopt;
    }
    int port = 0;
    for (const char c : payload.substr(before.size(), length)) {
        if (c < '0' || c > '9' || (port == 0 && c == '0')) return std::nullopt;
        port = 10 * port + (c - '0');
    }
    return port <= kHighestPort ? std::optional<int>(port) : std::nullopt;
}

std::string PanelPlayer::GetTokenFile()
{
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    std::string folder;
    if (state != nullptr && *state == '/') {
        folder = state;
    } else if (home != nullptr && *home == '/') {
        folder = std::string(home) + "/.local/state";
    }
    return folder.empty() ? folder : folder + "/Corvanta/panel-token";
}

}  // namespace headless
