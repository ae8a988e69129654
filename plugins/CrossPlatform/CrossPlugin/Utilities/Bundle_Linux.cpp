#include "Bundle_Linux.h"

#include <dlfcn.h>
#include <unistd.h>

#include <memory>
#include <vector>

#include "PropertyList_Linux.h"
#include "TextEncoding_Linux.h"

namespace {

constexpr char kFrameworkSuffix[] = ".framework";
constexpr char kVersionKey[] = "CFBundleShortVersionString";

std::string StripTrailingSeparators(std::string path)
{
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

// Returns the X of /a/b/X.framework; "" if the folder is named otherwise.
std::string GetFrameworkName(const std::string& folder)
{
    const std::string component = folder.substr(folder.rfind('/') + 1);
    const size_t suffixLength = sizeof kFrameworkSuffix - 1;
    if (component.size() <= suffixLength) return std::string();
    const size_t nameLength = component.size() - suffixLength;
    if (component.compare(nameLength, suffixLength, kFrameworkSuffix) != 0) return std::string();
    return component.substr(0, nameLength);
}

// Keeps this plug-in in memory even if the host unloads it: frameworks that it opened call back
// into it until the process ends, and the host may still hold pointers to its functions.
void KeepThisModuleLoaded()
{
    Dl_info module;
    if (dladdr(reinterpret_cast<void*>(&KeepThisModuleLoaded), &module) == 0) return;
    // Fails in a program that this code is linked into, which can't be unloaded anyway.
    (void)dlopen(module.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

}  // namespace

BundleRef OSOpenBundle(const std::string& path)
{
    static std::vector<std::unique_ptr<OpaqueBundle>> sOpenBundles;

    const std::string folder = StripTrailingSeparators(path);
    const std::string name = GetFrameworkName(folder);
    std::map<std::string, std::string> information;
    if (!IsUTF8(folder) || name.empty() ||
        !ReadPropertyList(folder + "/Resources/Info.plist", information)) {
        return nullptr;
    }
    void* const library = dlopen((folder + "/" + name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    for (const auto& open : sOpenBundles) {
        if (open->library != library) continue;
        // Undoes only the second dlopen; the first one keeps the library open.
        (void)dlclose(library);
        open->information = information;
        return open.get();
    }
    KeepThisModuleLoaded();
    sOpenBundles.push_back(std::make_unique<OpaqueBundle>(OpaqueBundle{library, information}));
    return sOpenBundles.back().get();
}

bool OSGetBundleVersion(BundleRef bundle, std::string& version)
{
    const auto found = bundle->information.find(kVersionKey);
    if (found == bundle->information.end()) return false;
    version = found->second;
    return true;
}

void* OSFindFunction(BundleRef bundle, const char* name)
{
    return bundle != nullptr && name != nullptr ? dlsym(bundle->library, name) : nullptr;
}

bool OSIsReachable(const std::string& path) { return access(path.c_str(), F_OK) == 0; }
