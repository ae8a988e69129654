#pragma once

#include <string>

#include "HostMessages.h"
#include "model/Host.h"

namespace headless {

// The entry point of a plug-in module.
typedef AIErr (*PluginMainFunction)(char* caller, char* selector, void* message);

// Sends the host's messages to the plug-in, one at a time. Fills the head that all messages begin
// with, keeps the plug-in's globals pointer, and writes each message to the journal before it is
// sent (operation "send") and after it returns ("answer"). Main thread only.
//
// The functions return what the plug-in returns, 0 for success.
class MessagePump {
public:
    // host   must outlive the pump
    // main   must remain loaded as long
    MessagePump(Host& host, PluginMainFunction main) : mHost(host), mMain(main) {}

    // A message with any content, for plug-ins that must survive it. The head is part of each
    // message; the other words are what follows it in the messages that have them.
    struct RawMessage {
        SPMessageData d;
        void* words[3];  // a handle; the type of a notifier; the document of a notifier
    };

    // Returns a message with the right head and null in all other words.
    RawMessage MakeRaw() const { return {MakeHead(), {nullptr, nullptr, nullptr}}; }

    // Sends a message of any kind. Each pointer may be null.
    AIErr SendRaw(const char* caller, const char* selector, RawMessage* message,
                  nlohmann::json arguments);

    // Sends "SP Interface" with "Startup", "About" or "Shutdown".
    AIErr SendInterface(const char* selector);

    // Sends "SP Access" / "Unload". Not 0 if the plug-in refuses to be unloaded.
    AIErr SendUnload();

    // Sends "AI Notifier" / "AI Notify" to each subscriber of `type`, in the order of subscription.
    //
    // notifyData   the handle of the document, or null
    void Notify(const std::string& type, void* notifyData);

    // Sends the menu-changed notifier if a menu item or group was added or removed since the last
    // call.
    void NotifyMenuChanges();

    // Sends "AI File Format" / "AI Check" to each file format, whatever the others return: highest
    // priority first, formats of the same priority in the order of registration.
    void SendCheck(const std::string& path);

    // Sends "AI Timer" / "AI Go" to each active timer whose period divides `tick`.
    void SendTimers(unsigned long tick);

    // Sends "AI Menu" with "AI Go" or "AI Update".
    //
    // item   the handle of the menu item
    AIErr SendMenu(const char* selector, void* item);

    // Send one message each to a notifier, a file format or a timer, given as its handle.
    //
    // notifyData, path   handles; may be null
    AIErr SendNotifier(void* notifier, const std::string& type, void* notifyData);
    AIErr SendCheck(void* format, void* path);
    AIErr SendTimer(void* timer);

private:
    SPMessageData MakeHead() const;
    AIErr Call(char* caller, char* selector, void* message);
    AIErr Send(const char* caller, const char* selector, void* message, SPMessageData& head,
               nlohmann::json arguments);

    Host& mHost;
    PluginMainFunction mMain;
    size_t mNotifiedMenuChanges = 0;
    size_t mDepth = 0;  // messages that have not been answered
};

}  // namespace headless
