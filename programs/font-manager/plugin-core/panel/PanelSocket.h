#pragma once

#include <cstdint>

#include "base/FileDescriptor.h"

namespace plugincore {

// TCP on the loopback interface. Non-blocking.
class PanelListener {
public:
    // Listens on 127.0.0.1, on the usual port; on one that the system chooses if the usual one is
    // taken or 0. Throws Failure.
    explicit PanelListener(uint16_t usualPort = 0);

    uint16_t GetPort() const { return mPort; }

    // Accepts the next waiting connection. Returns an invalid descriptor if there is none.
    base::FileDescriptor Accept();

private:
    bool Listen(uint16_t port);

    base::FileDescriptor mSocket;
    uint16_t mPort = 0;
};

}  // namespace plugincore
