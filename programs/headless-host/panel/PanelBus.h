#pragma once

#include <memory>
#include <string>
#include <vector>

#include "PlugPlugFunctions.h"

namespace headless {

// The event bus as the panel uses it: one type of events listened for, events sent. Main thread
// only.
class PanelBus {
public:
    // Opens the bus in the folder of the host's private frameworks, PlugPlugOwl.framework before
    // PlugPlug.framework, and listens for events of `type`. Null, and one line in `error` that
    // names the path and the reason, if that fails.
    static std::unique_ptr<PanelBus> Open(const std::string& frameworksFolder,
                                          const std::string& type, std::string& error);

    ~PanelBus();
    PanelBus(const PanelBus&) = delete;
    PanelBus& operator=(const PanelBus&) = delete;

    // Sends an event without data. False, and one line in `error`, if the bus refuses it.
    bool Send(const std::string& type, std::string& error);

    // The data of the events heard so far, in order, as often as the bus told them; an event
    // without data is an empty text.
    const std::vector<std::string>& GetHeard() const { return mHeard; }

private:
    PanelBus() = default;
    static void Hear(const PlugPlugEvent* event, void* context);

    void* mHandle = nullptr;
    PlugPlugAddEventListenerFunction mAdd = nullptr;
    PlugPlugRemoveEventListenerFunction mRemove = nullptr;
    PlugPlugDispatchEventFunction mDispatch = nullptr;
    std::string mType;
    bool mIsListening = false;
    std::vector<std::string> mHeard;
};

}  // namespace headless
