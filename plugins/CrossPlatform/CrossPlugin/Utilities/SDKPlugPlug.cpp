#include "SDKPlugPlug.h"

#include "Bundle.h"

namespace {

constexpr int kLoadFailed = 31;

template <class Function>
bool Bind(BundleRef bundle, const char* name, Function& member)
{
    member = reinterpret_cast<Function>(OSFindFunction(bundle, name));
    return member != nullptr;
}

}  // namespace

int SDKPlugPlug::Load()
{
    bundle = OSOpenEventBus();
    if (bundle == nullptr) return kLoadFailed;
    const bool isBound = Bind(bundle, "PlugPlugLoadExtension", PlugPlugLoadExtension) &&
                         Bind(bundle, "PlugPlugUnloadExtension", PlugPlugUnloadExtension) &&
                         Bind(bundle, "PlugPlugAddEventListener", PlugPlugAddEventListener) &&
                         Bind(bundle, "PlugPlugRemoveEventListener", PlugPlugRemoveEventListener) &&
                         Bind(bundle, "PlugPlugDispatchEvent", PlugPlugDispatchEvent);
    return isBound ? 0 : kLoadFailed;
}

int SDKPlugPlug::AddEventListener(const char* type, PlugPlugEventHandler handler, void* context)
{
    return PlugPlugAddEventListener != nullptr ? PlugPlugAddEventListener(type, handler, context)
                                               : 1;
}

// Tests another member than the one it calls: a successful Load binds both.
int SDKPlugPlug::DispatchEvent(const csxs::event::Event* event)
{
    return PlugPlugRemoveEventListener != nullptr ? PlugPlugDispatchEvent(event) : 1;
}
