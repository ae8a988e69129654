#include "PluginInfo.h"

#include "CFHolder_Mac.h"

namespace {

constexpr CFIndex kPathSize = 32767;

}  // namespace

bool OSGetBundlePath(const std::string& bundleIdentifier, std::string& path)
{
    const CFHolder<CFStringRef> identifier(CFStringCreateWithCString(
        kCFAllocatorDefault, bundleIdentifier.c_str(), kCFStringEncodingUTF8));
    if (!identifier) return false;
    const CFBundleRef bundle = CFBundleGetBundleWithIdentifier(identifier.get());
    if (bundle == nullptr) return false;
    const CFHolder<CFURLRef> url(CFBundleCopyBundleURL(bundle));
    UInt8 buffer[kPathSize] = {};
    if (!url || !CFURLGetFileSystemRepresentation(url.get(), false, buffer, kPathSize)) {
        return false;
    }
    path = reinterpret_cast<const char*>(buffer);
    return true;
}
