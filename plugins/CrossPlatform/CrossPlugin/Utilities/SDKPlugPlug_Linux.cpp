#include "SDKPlugPlug.h"

#include <string>

#include "Bundle_Linux.h"
#include "HostPlatformTable_Linux.h"

BundleRef OSOpenEventBus()
{
    const SHostPlatform* const platform = FindHostPlatform();
    if (platform == nullptr || platform->privateFrameworksPath == nullptr) return nullptr;
    const std::string folder = platform->privateFrameworksPath;
    const std::string preferred = folder + "/PlugPlugOwl.framework";
    return OSOpenBundle(OSIsReachable(preferred) ? preferred : folder + "/PlugPlug.framework");
}
