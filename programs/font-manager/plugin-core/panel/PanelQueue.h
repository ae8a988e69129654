#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "plugin-core/panel/PanelProtocol.h"

namespace plugincore {

// A line with its line feed, shared by all clients that receive it.
using PanelLine = std::shared_ptr<const std::string>;

// The requests that wait to be served and the answers that wait to be sent. A tick of the host only
// puts requests in and takes answers out. ServeNext, which reads the database, fontconfig and font
// files, runs in another thread (PanelWorker). Requests are served in their order.
// Thread-safe.
class PanelQueue {
public:
    // Only ServeNext uses the protocol, which has to outlive this object.
    explicit PanelQueue(PanelProtocol& protocol) : mProtocol(protocol) {}

    struct Result {
        uint64_t client = 0;            // as in the request
        PanelLine answer;               // null for client 0
        bool subscribes = false;        // the client receives events that come after this result
        std::vector<PanelLine> events;  // for the clients that subscribed before this result
        std::string failure;            // why changes couldn't be looked for; otherwise ""
    };

    struct Request {
        uint64_t client = 0;  // identifies the client; 0 asks for a look for events
        std::string line;     // without the line feed
    };

    // Queues the requests and empties `requests`. Returns the results since the last call. Never
    // waits: if another thread uses the queue just now, nothing happens until the next call.
    std::vector<Result> Exchange(std::vector<Request>& requests);

    // Serves the first request that waits. Returns false if none does. Throws nothing.
    bool ServeNext();

    // Waits for a request, or for Stop. Returns false after Stop.
    bool WaitForRequest();

    // Makes WaitForRequest return false, and drops the requests that wait.
    void Stop();

private:
    void LookForEvents(Result& result);

    PanelProtocol& mProtocol;
    std::mutex mMutex;
    std::condition_variable mArrived;
    bool mIsStopped = false;
    std::deque<Request> mRequests;
    std::vector<Result> mResults;
};

}  // namespace plugincore
