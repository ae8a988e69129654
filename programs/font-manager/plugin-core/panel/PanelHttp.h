#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "plugin-core/panel/page/PageFiles.h"

// What the panel's server answers to an HTTP request, without the transport.
namespace plugincore {

// A request as the parser read it.
struct PanelHttpRequest {
    std::string method;
    std::string target;                // not decoded
    std::vector<std::string> hosts;    // the values of all headers Host
    std::vector<std::string> origins;  // the same of Origin
    std::vector<std::string> tokens;   // the same of X-Panel-Token
    bool hasBody = false;
    bool isUpgrade = false;  // to WebSocket
};

struct PanelRoute {
    enum class Kind {
        kStatus,  // an answer without body
        kPage,    // `file`
        kFont,    // the font with the id `font`, or what PanelFontFile says
        kSocket,  // the WebSocket handshake
    };
    Kind kind = Kind::kStatus;
    int status = 0;  // of HTTP; for kStatus
    const PageFile* file = nullptr;
    std::string font;
};

// Decides by the table of docs/PANEL.md. `port` is the server's, `token` the one to present.
PanelRoute RoutePanelRequest(const PanelHttpRequest& request, uint16_t port,
                             const std::string& token);

// The headers of all answers.
std::vector<std::pair<std::string, std::string>> MakePanelHeaders(uint16_t port);

}  // namespace plugincore
