#include "DllFrameworkUtils_Mac.h"

#include "Bundle.h"
#include "CFHolder_Mac.h"

namespace {

CFHolder<CFStringRef> MakeString(const char* text)
{
    return CFHolder<CFStringRef>(
        CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8));
}

}  // namespace

std::string GetStdString(CFStringRef text)
{
    if (text == nullptr || CFStringGetLength(text) == 0) return std::string();
    const CFIndex size =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(text), kCFStringEncodingUTF8) + 1;
    std::string result(static_cast<size_t>(size), '\0');
    if (!CFStringGetCString(text, result.data(), size, kCFStringEncodingUTF8)) return std::string();
    result.resize(result.find('\0'));
    return result;
}

BundleRef OSOpenBundle(const std::string& path)
{
    // The URL of an empty path may be that of the working directory, and every folder is a bundle.
    if (path.empty()) return nullptr;
    const CFHolder<CFStringRef> text = MakeString(path.c_str());
    if (!text) return nullptr;
    const CFHolder<CFURLRef> url(
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, text.get(), kCFURLPOSIXPathStyle, true));
    return url ? ToBundle(CFBundleCreate(kCFAllocatorDefault, url.get())) : nullptr;
}

bool OSGetBundleVersion(BundleRef bundle, std::string& version)
{
    // The dictionary itself: a look-up by key through the bundle prefers localized values.
    const CFDictionaryRef information = CFBundleGetInfoDictionary(ToCFBundle(bundle));
    if (information == nullptr) return false;
    const CFTypeRef value = CFDictionaryGetValue(information, CFSTR("CFBundleShortVersionString"));
    // A property list may have a number in place of the text.
    if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) return false;
    version = GetStdString(static_cast<CFStringRef>(value));
    return true;
}

void* OSFindFunction(BundleRef bundle, const char* name)
{
    if (bundle == nullptr || name == nullptr) return nullptr;
    const CFHolder<CFStringRef> text = MakeString(name);
    return text ? CFBundleGetFunctionPointerForName(ToCFBundle(bundle), text.get()) : nullptr;
}
