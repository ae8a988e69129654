#include "DllFrameworkUtils.h"

#include <string>

#include "Bundle.h"
#include "DebugUtils.h"
#include "TraceArguments.h"

namespace {

void CopyVersion(BundleRef bundle, char* versionBuffer, unsigned int bufferSize)
{
    std::string version;
    if (versionBuffer == nullptr || bufferSize == 0 || !OSGetBundleVersion(bundle, version)) return;
    const size_t length = version.copy(versionBuffer, bufferSize - 1);
    versionBuffer[length] = '\0';
}

}  // namespace

BundleRef LoadDllOrFramework(const char* path, char* versionBuffer, unsigned int bufferSize)
{
    BundleRef bundle = nullptr;
    if (path != nullptr) bundle = OSOpenBundle(path);
    OutputIndentedAndFormattedString(
        0, "CFBundleCreate() returned 0x%08x on attempt to load plug-in interface from '%s'",
        TracePointer(bundle), TraceText(path));
    if (bundle != nullptr) CopyVersion(bundle, versionBuffer, bufferSize);
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
