#pragma once

#include <string>
#include <vector>

#include "HandlerModule.h"
#include "PlugPlugFunctions.h"

namespace plugplug {

// The bus behind the functions of PlugPlug, which tell what the operations do and answer. They
// throw std::bad_alloc, with the bus as it was. Main thread only.
//
// The frameworks hold no state: each is linked to the one library that this class is in, which the
// loader takes into a process once, by its name, from whichever folder it is asked for first.
class EventBus {
public:
    int Add(const char* type, PlugPlugEventHandler handler, void* context);
    int Remove(const char* type, PlugPlugEventHandler handler, void* context);
    int Dispatch(const PlugPlugEvent& event, const char* type);

private:
    struct Listener {
        unsigned long serial;  // never used again, so that a listener under way can be told
        std::string type;
        PlugPlugEventHandler handler;
        void* context;
        HandlerModule module;
    };

    std::vector<Listener>::iterator Find(const char* type, PlugPlugEventHandler handler,
                                         void* context);
    bool Has(unsigned long serial) const;
    void DropUnloaded();

    std::vector<Listener> mListeners;
    unsigned long mLastSerial = 0;
    int mDispatchesUnderWay = 0;
};

}  // namespace plugplug

// What the library exports for the frameworks: the functions of PlugPlug on the bus of the process.
extern "C" {
__attribute__((visibility("default"))) int PlugPlugEventBus_Add(const char* type,
                                                                PlugPlugEventHandler handler,
                                                                void* context);
__attribute__((visibility("default"))) int PlugPlugEventBus_Remove(const char* type,
                                                                   PlugPlugEventHandler handler,
                                                                   void* context);
__attribute__((visibility("default"))) int PlugPlugEventBus_Dispatch(const PlugPlugEvent* event);
}
