#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#import "References.h"

// Resource properties of a URL describe a symbolic link itself, not its target.
static bool GetStatus(CFURLRef url, struct stat& status)
{
    return lstat(PathOf(url), &status) == 0;
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle,
                                       Boolean isDirectory)
{
    if (MustFail(__func__)) return nullptr;
    // macOS doesn't say what the URL of an empty path is. This is the worst that it can be.
    NSString* const place = CFStringGetLength(path) != 0
                                ? As<NSString>(path)
                                : [[NSFileManager defaultManager] currentDirectoryPath];
    return Give<CFURLRef>([[NSURL fileURLWithPath:place isDirectory:isDirectory] retain]);
}

CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef, CFURLRef url, CFStringRef component,
                                               Boolean isDirectory)
{
    if (MustFail(__func__)) return nullptr;
    NSString* const path =
        [[As<NSURL>(url) path] stringByAppendingPathComponent:As<NSString>(component)];
    return Give<CFURLRef>([[NSURL fileURLWithPath:path isDirectory:isDirectory] retain]);
}

CFURLRef CFURLCopyAbsoluteURL(CFURLRef url)
{
    if (MustFail(__func__)) return nullptr;
    return Give<CFURLRef>([[As<NSURL>(url) absoluteURL] retain]);
}

CFURLRef CFURLCreateFilePathURL(CFAllocatorRef, CFURLRef url, CFErrorRef*)
{
    if (MustFail(__func__)) return nullptr;
    return Give<CFURLRef>([As<NSURL>(url) retain]);
}

Boolean CFURLResourceIsReachable(CFURLRef url, CFErrorRef*)
{
    struct stat status;
    return GetStatus(url, status);
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean, UInt8* buffer, CFIndex size)
{
    if (MustFail(__func__)) return false;
    const char* const path = PathOf(url);
    const size_t length = std::strlen(path);
    if (length >= static_cast<size_t>(size)) return false;
    std::memcpy(buffer, path, length + 1);
    return true;
}

Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value, CFErrorRef*)
{
    if (MustFail(__func__)) return false;
    if (MustFail("the value of CFURLCopyResourcePropertyForKey")) {
        *static_cast<CFDateRef*>(value) = nullptr;
        return true;
    }
    const bool isKnown = [As<NSString>(key) isEqual:As<NSString>(kCFURLContentModificationDateKey)];
    struct stat status;
    if (!isKnown || !GetStatus(url, status)) return false;
    const double seconds = static_cast<double>(status.st_mtim.tv_sec) -
                           kCFAbsoluteTimeIntervalSince1970 +
                           static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
    *static_cast<CFDateRef*>(value) =
        Give<CFDateRef>([[NSDate dateWithTimeIntervalSinceReferenceDate:seconds] retain]);
    return true;
}
