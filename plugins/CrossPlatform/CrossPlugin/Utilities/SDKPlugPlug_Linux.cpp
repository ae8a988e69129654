#include <string>

#include "Bundle_Linux.h"
#include "HostPlatformTable_Linux.h"
#include "SDKPlugPlug.h"

namespace {

constexpr int kLoadFailed = 31;

template <class Function>
bool Bind(BundleRef bundle, const char* name, Function& member)
{
    member = reinterpret_cast<Function>(OSFindFunction(bundle, name));
    return member != nullptr;
}

BundleRef OpenBus()
{
    const SHostPlatform* const platform = FindHostPlatform();
    if (platform == nullptr || platform->privateFrameworksPath == nullptr) return nullptr;
    const std::string folder = platform->privateFrameworksPath;
    const std::string preferred = folder + "/PlugPlugOwl.framework";
    return OSOpenBundle(OSIsReachable(preferred) ? preferred : folder + "/PlugPlug.framework");
}

}  // namespace

int SDKPlugPlug::Load()
{
    bundle = OpenBus();
    if (bundle == nullptr) return kLoadFailed;
    const bool isBound = Bind(bundle, "PlugPlugLoadExtension", PlugPlugLoadExtension) &&
                         Bind(bundle, "PlugPlugUnloadExtension", PlugPlugUnloadExtension) &&
                         Bind(bundle, "PlugPlugAddEventListener", PlugPlugAddEventListener) &&
                         Bind(bundle, "PlugPlugRemoveEventListener", PlugPlugRemoveEventListener) &&
                         Bind(bundle, "PlugPlugDispatchEvent", PlugPlugDispatchEvent);
    return isBound ? 0 : kLoadFailed;
}
