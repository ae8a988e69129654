#pragma once

#include <cstdint>

#include "base/FileDescriptor.h"
#include "plugin-core/storage/Database.h"

namespace plugincore {

// TCP on the loopback interface. Non-blocking.
class PanelListener {
public:
    // Listens on 127.0.0.1, on `port` if it isn't 0 and no other program uses it, otherwise on a
    // port that the system chooses. Throws Failure.
    explicit PanelListener(uint16_t port = 0);

    uint16_t GetPort() const { return mPort; }

    // Accepts the next waiting connection. Returns an invalid descriptor if there is none.
    base::FileDescriptor Accept();

private:
    bool Bind(uint16_t port);

    base::FileDescriptor mSocket;
    uint16_t mPort = 0;
};

// The port of the last time, so that a page which is open in a browser finds the program again that
// was started anew; 0 if there is none. Throws Failure.
uint16_t LoadPanelPort(Database& database);

// Keeps the port for LoadPanelPort. Throws Failure.
void StorePanelPort(Database& database, uint16_t port);

}  // namespace plugincore
