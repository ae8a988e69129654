#pragma once

#include <string>

namespace macho {

// Makes the stand-in of CoreFoundation know the plug-in's bundle, the folder X.aip, and the folder
// of the host's private frameworks ("" for none).
void SetBundles(const std::string& plugin, const std::string& privateFrameworks);

// An autorelease pool for a scope. A host on macOS has one around each message, because its run
// loop makes one for each event.
class PoolOfMessage {
public:
    PoolOfMessage();
    ~PoolOfMessage();
    PoolOfMessage(const PoolOfMessage&) = delete;
    PoolOfMessage& operator=(const PoolOfMessage&) = delete;

private:
    void* mPool;
};

}  // namespace macho
