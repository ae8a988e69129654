#pragma once

#include <string>

#include "HostMessages.h"
#include "model/Host.h"

namespace headless {

typedef AIErr (*PluginMainFunction)(char* caller, char* selector, void* message);

// Sends the host's messages to the guest, one at a time: fills their common head, keeps the globals
// word, and writes each to the journal before it is sent ("send") and when it is answered.
class MessagePump {
public:
    MessagePump(Host& host, PluginMainFunction main) : mHost(host), mMain(main) {}

    // "SP Interface" with "Startup", "About" or "Shutdown".
    AIErr SendInterface(const char* selector);

    // "SP Access" / "Unload": not 0 if the guest wants to stay.
    AIErr SendUnload();

    // "AI Notifier" / "AI Notify" to each subscriber of the type, in the order of subscription.
    // Returns how many there are.
    size_t SendNotifier(const std::string& type, void* notifyData);

    // "AI File Format" / "AI Check" to each file format, the highest priority first, of equal ones
    // the first that was registered. All are asked, whatever they answer.
    void SendCheck(const std::string& path);

    // "AI Timer" / "AI Go" to each active timer whose period the number of the tick is a multiple
    // of.
    void SendTimers(unsigned long tick);

    // "AI Menu" with "AI Go" or "AI Update".
    AIErr SendMenu(const char* selector, void* item);

private:
    SPMessageData MakeHead() const;
    AIErr Send(const char* caller, const char* selector, void* message, SPMessageData& head,
               nlohmann::json arguments);

    Host& mHost;
    PluginMainFunction mMain;
};

}  // namespace headless
