#pragma once

#include <string>

#include "HostInterface.h"
#include "PCILoader.h"

// A wrong plug-in is the sound one with one fault: it changes what happens to a message, or what
// happens when the sound plug-in calls PluginCore.
namespace wrong {

// PluginCore's own functions, which those in the loader's table may hide.
namespace core {
#define DECLARE_REAL_FUNCTION(name) inline name##Function name = nullptr;
PLUGIN_CORE_FUNCTIONS(DECLARE_REAL_FUNCTION)
#undef DECLARE_REAL_FUNCTION
}  // namespace core

constexpr unsigned int kCoreNotFound = 0x07000000;
constexpr unsigned int kCoreTooSmall = 0x0C000000;

struct Message {
    std::string caller;
    std::string selector;
    void* data;
    int depth;  // how many messages are being handled already

    // Lets the sound plug-in handle it.
    AIErr Send() const;

    bool Is(const char* ofCaller, const char* ofSelector) const
    {
        return caller == ofCaller && selector == ofSelector;
    }
};

struct Fault {
    int number;                         // of the rule that it breaks
    AIErr (*handle)(Message&);          // instead of Message::Send; may be null
    void (*change)(PCILoader& loader);  // once, when PluginCore is loaded; may be null
};

// For Fault::change: hides PluginCore's function by another.
#define WRONG_CORE(function, with) [](PCILoader& loader) { loader.pf##function = with; }

// Returns null if there is no fault of this number.
const Fault* FindFault(int number);

// The parts of the table, by subject.
extern const Fault kMessageFaults[];
extern const Fault kStartFaults[];
extern const Fault kDocumentFaults[];
extern const Fault kBufferFaults[];
extern const Fault kMenuFaults[];
extern const Fault kPeriodFaults[];
extern const Fault kTickFaults[];

}  // namespace wrong
