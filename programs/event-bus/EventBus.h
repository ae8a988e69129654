#pragma once

#include <string>
#include <vector>

#include "HandlerModule.h"
#include "PlugPlugFunctions.h"

namespace plugplug {

// The event bus of the process. PlugPlugFunctions.h specifies the operations and their results.
// They throw std::bad_alloc and then leave the bus unchanged. [main-thread]
//
// The frameworks have no state. Each is linked to the library that contains this class, and the
// loader loads that library once per process, by its soname, from the folder of the first
// framework.
class EventBus {
public:
    int Add(const char* type, PlugPlugEventHandler handler, void* context);
    int Remove(const char* type, PlugPlugEventHandler handler, void* context);
    int Dispatch(const PlugPlugEvent& event, const char* type);

private:
    struct Listener {
        unsigned long serial;  // identifies a listener; never reused
        std::string type;
        PlugPlugEventHandler handler;
        void* context;
        HandlerModule module;
    };

    std::vector<Listener>::iterator Find(const char* type, PlugPlugEventHandler handler,
                                         void* context);
    bool Has(unsigned long serial) const;

    // Removes the listeners whose modules were unloaded.
    void DropUnloaded();

    std::vector<Listener> mListeners;
    unsigned long mLastSerial = 0;
    int mDispatchesUnderWay = 0;
};

}  // namespace plugplug

// The functions that the library exports for the frameworks: those of PlugPlug, on the bus of the
// process.
extern "C" {
__attribute__((visibility("default"))) int PlugPlugEventBus_Add(const char* type,
                                                                PlugPlugEventHandler handler,
                                                                void* context);
__attribute__((visibility("default"))) int PlugPlugEventBus_Remove(const char* type,
                                                                   PlugPlugEventHandler handler,
                                                                   void* context);
__attribute__((visibility("default"))) int PlugPlugEventBus_Dispatch(const PlugPlugEvent* event);
}
