#include "PluginInfo.h"

#include <dlfcn.h>

#include <map>

#include "PropertyList_Linux.h"

// The only bundle that it can find is the folder that this code was loaded from.
bool OSGetBundlePath(const std::string& bundleIdentifier, std::string& path)
{
    Dl_info module;
    if (bundleIdentifier.empty() ||
        dladdr(reinterpret_cast<void*>(&OSGetBundlePath), &module) == 0 ||
        module.dli_fname == nullptr) {
        return false;
    }
    const std::string file = module.dli_fname;
    const size_t separator = file.rfind('/');
    if (separator == std::string::npos) return false;
    const std::string folder = file.substr(0, separator);

    std::map<std::string, std::string> information;
    if (!ReadPropertyList(folder + "/Info.plist", information) ||
        information["CFBundleIdentifier"] != bundleIdentifier) {
        return false;
    }
    path = folder;
    return true;
}
