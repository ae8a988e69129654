#pragma once

#include <string>

#include "PlugPlugFunctions.h"

// Opens a framework of PlugPlug and looks up its functions, which are null if it can't be opened.
// They are valid as long as this object.
class OpenFramework {
public:
    explicit OpenFramework(const std::string& name,
                           const std::string& folder = PLUG_PLUG_FRAMEWORKS);
    ~OpenFramework();
    OpenFramework(const OpenFramework&) = delete;
    OpenFramework& operator=(const OpenFramework&) = delete;

    PlugPlugLoadExtensionFunction LoadExtension = nullptr;
    PlugPlugUnloadExtensionFunction UnloadExtension = nullptr;
    PlugPlugAddEventListenerFunction Add = nullptr;
    PlugPlugRemoveEventListenerFunction Remove = nullptr;
    PlugPlugDispatchEventFunction Dispatch = nullptr;

private:
    void* mHandle;
};
