#pragma once

#include <thread>

#include "plugin-core/panel/PanelProtocol.h"
#include "plugin-core/panel/PanelQueue.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Locations.h"

namespace plugincore {

// The thread that serves the panel's requests, so that the host's ticks don't wait for them: one
// request for fonts makes fontconfig read its configuration, and activating fonts is one rename in
// one transaction, which cannot be spread over several ticks. The thread has a connection of its
// own to the database; of the two, each sees the changes of the other as those of another process.
class PanelWorker {
public:
    // Starts the thread. This process has to be in the list of programs, see Services::Start.
    // Throws Failure.
    explicit PanelWorker(const Locations& locations);

    // Waits for the request that is being served. The others aren't served any more.
    ~PanelWorker();
    PanelWorker(const PanelWorker&) = delete;
    PanelWorker& operator=(const PanelWorker&) = delete;

    PanelQueue& GetQueue() { return mQueue; }

private:
    void Work();

    Services mServices;
    PanelProtocol mProtocol;
    PanelQueue mQueue;
    std::thread mThread;
};

}  // namespace plugincore
