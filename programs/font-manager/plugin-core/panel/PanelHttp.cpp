#include "plugin-core/panel/PanelHttp.h"

#include "base/Strings.h"
#include "plugin-core/panel/PanelToken.h"

namespace plugincore {
namespace {

constexpr std::string_view kFontPath = "/font/";
constexpr std::string_view kSocketPath = "/socket";

enum HttpStatus { kBadRequest = 400, kForbidden = 403, kNotFound = 404, kNoSuchMethod = 405 };
constexpr int kUpgradeRequired = 426;

PanelRoute MakeStatus(int status)
{
    PanelRoute route;
    route.status = status;
    return route;
}

// The names under which this machine alone is known. A browser sends the name that it has resolved:
// another one is that of a page which isn't ours.
bool IsOneOfOurs(const std::string& value, const std::string& before, uint16_t port)
{
    const std::string end = ":" + std::to_string(port);
    return value == before + "127.0.0.1" + end || value == before + "localhost" + end;
}

}  // namespace

PanelRoute RoutePanelRequest(const PanelHttpRequest& request, uint16_t port,
                             const std::string& token)
{
    if (request.hasBody) return MakeStatus(kBadRequest);
    if (request.hosts.size() != 1 || !IsOneOfOurs(request.hosts[0], "", port)) {
        return MakeStatus(kForbidden);
    }
    if (request.origins.size() > 1 ||
        (request.origins.size() == 1 && !IsOneOfOurs(request.origins[0], "http://", port))) {
        return MakeStatus(kForbidden);
    }
    if (request.method != "GET" && request.method != "HEAD") return MakeStatus(kNoSuchMethod);
    PanelRoute route;
    if (request.target == kSocketPath) {
        if (!request.isUpgrade) return MakeStatus(kUpgradeRequired);
        route.kind = PanelRoute::Kind::kSocket;
        return route;
    }
    if (base::StartsWith(request.target, kFontPath)) {
        if (request.tokens.size() != 1 || !IsSameToken(request.tokens[0], token)) {
            return MakeStatus(kForbidden);
        }
        route.kind = PanelRoute::Kind::kFont;
        route.font = request.target.substr(kFontPath.size());
        return route;
    }
    route.file = FindPageFile(request.target);
    if (route.file == nullptr) return MakeStatus(kNotFound);
    route.kind = PanelRoute::Kind::kPage;
    return route;
}

std::vector<std::pair<std::string, std::string>> MakePanelHeaders(uint16_t port)
{
    const std::string end = ":" + std::to_string(port);
    return {
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; connect-src 'self' "
         "ws://127.0.0.1" +
             end + " ws://localhost" + end +
             "; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
        {"X-Content-Type-Options", "nosniff"},
        {"Referrer-Policy", "no-referrer"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Cache-Control", "no-store"},
    };
}

}  // namespace plugincore
