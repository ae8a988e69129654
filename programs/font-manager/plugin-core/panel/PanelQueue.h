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
// files, runs in another thread (PanelWorker). Requests are served in the order of Submit.
// Thread-safe.
class PanelQueue {
public:
    // Only ServeNext uses the protocol, which has to outlive this object.
    explicit PanelQueue(PanelProtocol& protocol) : mProtocol(protocol) {}

    struct Result {
        uint64_t client = 0;            // as in Submit; 0 after SubmitLook
        PanelLine answer;               // null after SubmitLook
        bool subscribes = false;        // the client receives events that come after this result
        std::vector<PanelLine> events;  // for the clients that subscribed before this result
        std::string failure;            // why changes couldn't be looked for; otherwise ""
    };

    // Queues a request. `client` isn't 0.
    void Submit(uint64_t client, std::string line);

    // Queues a look for changes that are events.
    void SubmitLook() { Submit(0, {}); }

    // Returns the results since the last call. Doesn't wait for requests that are being served.
    std::vector<Result> TakeResults();

    // Serves the first request that waits. Returns false if none does. Throws nothing.
    bool ServeNext();

    // Waits for a request, or for Stop. Returns false after Stop.
    bool WaitForRequest();

    // Makes WaitForRequest return false, and drops the requests that wait.
    void Stop();

private:
    struct Request {
        uint64_t client = 0;
        std::string line;
    };
    void LookForEvents(Result& result);

    PanelProtocol& mProtocol;
    std::mutex mMutex;
    std::condition_variable mArrived;
    bool mIsStopped = false;
    std::deque<Request> mRequests;
    std::vector<Result> mResults;
};

}  // namespace plugincore
