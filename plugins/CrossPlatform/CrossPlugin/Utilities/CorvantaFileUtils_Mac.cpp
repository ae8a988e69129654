#include "CorvantaFileUtils_Mac.h"

#include "CFHolder_Mac.h"

namespace CorvantaFileUtils {

long GetFileModificationDate(const char* path)
{
    if (path == nullptr) return 0;
    const CFHolder<CFStringRef> text(
        CFStringCreateWithCString(kCFAllocatorDefault, path, kCFStringEncodingUTF8));
    return GetFileModificationDate(text.get());
}

long GetFileModificationDate(CFStringRef path)
{
    // The URL of an empty path may be that of the working directory.
    if (path == nullptr || CFStringGetLength(path) == 0) return 0;
    const CFHolder<CFURLRef> url(
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, kCFURLPOSIXPathStyle, false));
    if (!url) return 0;
    CFDateRef value = nullptr;
    if (!CFURLCopyResourcePropertyForKey(url.get(), kCFURLContentModificationDateKey, &value,
                                         nullptr) ||
        value == nullptr) {
        return 0;
    }
    const CFHolder<CFDateRef> date(value);
    // Truncated before the sum, so times before 2001, which are negative here, round up.
    return static_cast<long>(CFDateGetAbsoluteTime(date.get())) +
           static_cast<long>(kCFAbsoluteTimeIntervalSince1970);
}

}  // namespace CorvantaFileUtils
