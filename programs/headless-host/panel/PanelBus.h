#pragma once

#include <memory>
#include <string>
#include <vector>

#include "PlugPlugFunctions.h"

namespace headless {

// The event by which the panel asks for the port of PluginCore's socket, and that of the answer.
constexpr char kPortRequestEvent[] = "com.corvanta.portnumberrequest";
constexpr char kPortResponseEvent[] = "com.corvanta.portnumberresponse";

// The event bus as the panel uses it: listens for one type of events and sends events. Main thread
// only.
class PanelBus {
public:
    // Loads the bus and listens for events of `type`.
    //
    // frameworksFolder   contains PlugPlugOwl.framework, which is preferred, or PlugPlug.framework
    // Returns null, with one line in `error` that names the path and the reason, on failure.
    static std::unique_ptr<PanelBus> Open(const std::string& frameworksFolder,
                                          const std::string& type, std::string& error);

    // Stops listening and unloads the bus.
    ~PanelBus();
    PanelBus(const PanelBus&) = delete;
    PanelBus& operator=(const PanelBus&) = delete;

    // Sends an event without data. Returns false, with one line in `error`, if the bus refuses it.
    bool Send(const std::string& type, std::string& error);

    // The data of the events received so far, in order; "" for an event without data.
    const std::vector<std::string>& GetReceived() const { return mReceived; }

private:
    PanelBus() = default;
    static void OnEvent(const PlugPlugEvent* event, void* context);

    void* mHandle = nullptr;
    PlugPlugAddEventListenerFunction mAdd = nullptr;
    PlugPlugRemoveEventListenerFunction mRemove = nullptr;
    PlugPlugDispatchEventFunction mDispatch = nullptr;
    std::string mType;
    bool mIsListening = false;
    std::vector<std::string> mReceived;
};

}  // namespace headless
