#include "PluginInfo.h"

std::string PluginInfo::bundleIdentifier;

std::string PluginInfo::GetPluginBundleIdentifier() { return bundleIdentifier; }

std::string PluginInfo::GetPluginPath(char const* identifier)
{
    std::string path;
    const bool isFound = OSGetBundlePath(
        identifier != nullptr ? std::string(identifier) : GetPluginBundleIdentifier(), path);
    return isFound ? path : "./CorvantaFontManagement...";
}
