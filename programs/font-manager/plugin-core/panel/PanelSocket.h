#pragma once

#include <cstdint>

#include "base/FileDescriptor.h"

namespace plugincore {

// TCP on the loopback interface. Non-blocking.
class PanelListener {
public:
    // Listens on 127.0.0.1, on a port that the system chooses. Throws Failure.
    PanelListener();

    uint16_t GetPort() const { return mPort; }

    // Accepts the next waiting connection. Returns an invalid descriptor if there is none.
    base::FileDescriptor Accept();

private:
    base::FileDescriptor mSocket;
    uint16_t mPort = 0;
};

}  // namespace plugincore
