#include <string>

#include "Bundle_Linux.h"
#include "DebugUtils.h"
#include "DllFrameworkUtils.h"
#include "TraceArguments.h"

namespace {

constexpr char kVersionKey[] = "CFBundleShortVersionString";

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
    if (path != nullptr) bundle = OSOpenBundle(path);
    OutputIndentedAndFormattedString(
        0, "CFBundleCreate() returned 0x%08x on attempt to load plug-in interface from '%s'",
        TracePointer(bundle), TraceText(path));
    if (bundle != nullptr) CopyVersion(*bundle, versionBuffer, bufferSize);
    return bundle;
}

void* GetFunctionPtr(BundleRef bundle, const char* name)
{
    if (bundle == nullptr) return nullptr;
    void* const function = OSFindFunction(bundle, name);
    OutputIndentedAndFormattedString(
        0, "CFBundleGetFunctionPointerForName(0x%08x, '%s') returned 0x%08x", TracePointer(bundle),
        name != nullptr ? name : "NULL", TracePointer(function));
    return function;
}
