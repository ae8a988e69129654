#include "EventBus.h"

#include <algorithm>

#include "PlugPlugEvent.h"  // IWYU pragma: keep

namespace plugplug {

namespace {

class Nesting {
public:
    explicit Nesting(int& depth) : mDepth(depth) { ++mDepth; }
    ~Nesting() { --mDepth; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    int& mDepth;
};

EventBus& GetBus()
{
    static EventBus sBus;
    return sBus;
}

template <class Operation>
int Guard(Operation operation)
{
    try {
        return operation();
    } catch (...) {
        return kPlugPlugFailure;
    }
}

}  // namespace

int EventBus::Add(const char* type, PlugPlugEventHandler handler, void* context)
{
    DropUnloaded();
    if (Find(type, handler, context) != mListeners.end()) return kPlugPlugSuccess;
    mListeners.push_back({mLastSerial + 1, type, handler, context, OSFindHandlerModule(handler)});
    ++mLastSerial;
    return kPlugPlugSuccess;
}

int EventBus::Remove(const char* type, PlugPlugEventHandler handler, void* context)
{
    const auto found = Find(type, handler, context);
    if (found == mListeners.end()) return kPlugPlugNotFound;
    mListeners.erase(found);
    return kPlugPlugSuccess;
}

int EventBus::Dispatch(const PlugPlugEvent& event, const char* type)
{
    if (mDispatchesUnderWay >= kPlugPlugDeepestNesting) return kPlugPlugNestedTooDeep;
    const Nesting nesting(mDispatchesUnderWay);

    // Listeners may add and remove listeners, which invalidates iterators of the list.
    std::vector<Listener> called;
    std::copy_if(mListeners.begin(), mListeners.end(), std::back_inserter(called),
                 [type](const Listener& listener) { return listener.type == type; });
    int result = kPlugPlugSuccess;
    for (const Listener& listener : called) {
        if (!Has(listener.serial)) continue;
        if (!OSIsHandlerModuleLoaded(listener.module, listener.handler)) continue;
        try {
            listener.handler(&event, listener.context);
        } catch (...) {
            result = kPlugPlugListenerFailed;
        }
    }
    return result;
}

std::vector<EventBus::Listener>::iterator EventBus::Find(const char* type,
                                                         PlugPlugEventHandler handler,
                                                         void* context)
{
    return std::find_if(mListeners.begin(), mListeners.end(), [&](const Listener& listener) {
        return listener.handler == handler && listener.context == context && listener.type == type;
    });
}

bool EventBus::Has(unsigned long serial) const
{
    return std::any_of(mListeners.begin(), mListeners.end(),
                       [serial](const Listener& listener) { return listener.serial == serial; });
}

void EventBus::DropUnloaded()
{
    mListeners.erase(std::remove_if(mListeners.begin(), mListeners.end(),
                                    [](const Listener& listener) {
                                        return !OSIsHandlerModuleLoaded(listener.module,
                                                                        listener.handler);
                                    }),
                     mListeners.end());
}

}  // namespace plugplug

int PlugPlugEventBus_Add(const char* type, PlugPlugEventHandler handler, void* context)
{
    if (type == nullptr || handler == nullptr) return kPlugPlugNullArgument;
    return plugplug::Guard([&] { return plugplug::GetBus().Add(type, handler, context); });
}

int PlugPlugEventBus_Remove(const char* type, PlugPlugEventHandler handler, void* context)
{
    if (type == nullptr || handler == nullptr) return kPlugPlugNullArgument;
    return plugplug::Guard([&] { return plugplug::GetBus().Remove(type, handler, context); });
}

int PlugPlugEventBus_Dispatch(const PlugPlugEvent* event)
{
    if (event == nullptr || event->type == nullptr) return kPlugPlugNullArgument;
    return plugplug::Guard([&] { return plugplug::GetBus().Dispatch(*event, event->type); });
}
