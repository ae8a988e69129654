#include "DllFrameworkUtils.h"

#include <dlfcn.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DebugUtils.h"
#include "PropertyList_Linux.h"
#include "TextEncoding_Linux.h"
#include "TraceArguments.h"

struct OpaqueBundle {
    void* library;
    std::map<std::string, std::string> information;
};

namespace {

constexpr char kFrameworkSuffix[] = ".framework";
constexpr char kVersionKey[] = "CFBundleShortVersionString";

std::string StripTrailingSeparators(std::string path)
{
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

// The X of /a/b/X.framework, or the empty string.
std::string GetFrameworkName(const std::string& folder)
{
    const std::string component = folder.substr(folder.rfind('/') + 1);
    const size_t suffixLength = sizeof kFrameworkSuffix - 1;
    if (component.size() <= suffixLength) return std::string();
    const size_t nameLength = component.size() - suffixLength;
    if (component.compare(nameLength, suffixLength, kFrameworkSuffix) != 0) return std::string();
    return component.substr(0, nameLength);
}

// What has been opened calls back into this code for the rest of the process's life, and the host
// may hold functions of it as well: it stays, even if the host unloads it.
void KeepThisModuleLoaded()
{
    Dl_info module;
    if (dladdr(reinterpret_cast<void*>(&KeepThisModuleLoaded), &module) == 0) return;
    // A program that holds this code itself can't lose it: there the call fails, and may.
    (void)dlopen(module.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

// Bundles stay open for the life of the process, since their functions may be called at any time.
// Opening one again gives the same one.
OpaqueBundle* OpenBundle(const std::string& folder)
{
    static std::vector<std::unique_ptr<OpaqueBundle>> sOpenBundles;

    const std::string name = GetFrameworkName(folder);
    std::map<std::string, std::string> information;
    if (name.empty() || !ReadPropertyList(folder + "/Resources/Info.plist", information)) {
        return nullptr;
    }
    void* const library = dlopen((folder + "/" + name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    for (const auto& open : sOpenBundles) {
        if (open->library != library) continue;
        // Gives back the count of the second opening alone.
        (void)dlclose(library);
        open->information = information;
        return open.get();
    }
    KeepThisModuleLoaded();
    sOpenBundles.push_back(std::make_unique<OpaqueBundle>(OpaqueBundle{library, information}));
    return sOpenBundles.back().get();
}

void CopyVersion(const OpaqueBundle& bundle, char* versionBuffer, unsigned int bufferSize)
{
    const auto version = bundle.information.find(kVersionKey);
    if (version == bundle.information.end() || versionBuffer == nullptr || bufferSize == 0) return;
    const size_t length = version->second.copy(versionBuffer, bufferSize - 1);
    versionBuffer[length] = '\0';
}

}  // namespace

BundleRef LoadDllOrFramework(const char* path, char* versionBuffer, unsigned int bufferSize)
{
    OpaqueBundle* bundle = nullptr;
    if (path != nullptr && IsUTF8(path)) bundle = OpenBundle(StripTrailingSeparators(path));
    OutputIndentedAndFormattedString(
        0, "CFBundleCreate() returned 0x%08x on attempt to load plug-in interface from '%s'",
        TracePointer(bundle), TraceText(path));
    if (bundle != nullptr) CopyVersion(*bundle, versionBuffer, bufferSize);
    return bundle;
}

void* GetFunctionPtr(BundleRef bundle, const char* name)
{
    if (bundle == nullptr) return nullptr;
    void* const function = name != nullptr ? dlsym(bundle->library, name) : nullptr;
    OutputIndentedAndFormattedString(
        0, "CFBundleGetFunctionPointerForName(0x%08x, '%s') returned 0x%08x", TracePointer(bundle),
        name != nullptr ? name : "NULL", TracePointer(function));
    return function;
}
