#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <optional>
#include <string>

#include "CoreFoundationStandIn.h"
#import "References.h"

// A folder as a bundle. Every folder is valid; its library is opened when the first function is
// looked up.
@interface StandInBundle : NSObject {
@public
    NSString* path;
    NSDictionary* information;
    void* library;
}
@end

@implementation StandInBundle

- (void)dealloc
{
    [path release];
    [information release];
    [super dealloc];
}

@end

namespace {

std::map<std::string, StandInBundle*>& Bundles()
{
    static std::map<std::string, StandInBundle*> bundles;
    return bundles;
}

std::string gMainBundle;
std::optional<std::string> gPrivateFrameworks;

bool IsFolder(const char* path)
{
    struct stat status;
    return stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

NSDictionary* ReadInformation(NSString* path)
{
    for (const char* place : {"Resources/Info.plist", "Contents/Info.plist", "Info.plist"}) {
        NSString* const file =
            [path stringByAppendingPathComponent:[NSString stringWithUTF8String:place]];
        NSData* const content = [NSData dataWithContentsOfFile:file];
        if (content == nil) continue;
        id const list = [NSPropertyListSerialization propertyListWithData:content
                                                                  options:0
                                                                   format:NULL
                                                                    error:NULL];
        if ([list isKindOfClass:[NSDictionary class]]) return [list retain];
    }
    return nil;
}

StandInBundle* FindOrOpen(const std::string& path)
{
    StandInBundle*& bundle = Bundles()[path];
    if (bundle != nil) return bundle;
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    bundle = [[StandInBundle alloc] init];
    bundle->path = [[NSString alloc] initWithUTF8String:path.c_str()];
    bundle->information = ReadInformation(bundle->path);
    [pool release];
    return bundle;
}

CFURLRef CopyURL(NSString* path)
{
    return Give<CFURLRef>([[NSURL fileURLWithPath:path isDirectory:YES] retain]);
}

void OpenLibrary(StandInBundle* bundle)
{
    NSString* name = [bundle->information objectForKey:@"CFBundleExecutable"];
    if (name == nil) name = [[bundle->path lastPathComponent] stringByDeletingPathExtension];
    for (const char* place : {"", "Contents/MacOS"}) {
        NSString* const folder =
            [bundle->path stringByAppendingPathComponent:[NSString stringWithUTF8String:place]];
        NSString* const file = [folder stringByAppendingPathComponent:name];
        bundle->library = dlopen([file UTF8String], RTLD_NOW | RTLD_LOCAL);
        if (bundle->library != nullptr) return;
    }
}

}  // namespace

void CoreFoundationStandIn::SetMainBundle(const std::string& path) { gMainBundle = path; }

void CoreFoundationStandIn::SetPrivateFrameworks(const std::string& path)
{
    gPrivateFrameworks = path;
}

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef url)
{
    const char* const path = PathOf(url);
    if (MustFail(__func__) || !IsFolder(path)) return nullptr;
    return Give<CFBundleRef>([FindOrOpen(path) retain]);
}

CFBundleRef CFBundleGetMainBundle(void)
{
    if (MustFail(__func__)) return nullptr;
    if (gMainBundle.empty()) {
        char program[4096] = {};
        if (readlink("/proc/self/exe", program, sizeof program - 1) < 0) return nullptr;
        gMainBundle = program;
        gMainBundle.erase(gMainBundle.rfind('/'));
    }
    return reinterpret_cast<CFBundleRef>(FindOrOpen(gMainBundle));
}

CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier)
{
    for (const auto& entry : Bundles()) {
        NSString* const own = [entry.second->information objectForKey:@"CFBundleIdentifier"];
        if ([own isEqual:As<NSString>(identifier)]) {
            return reinterpret_cast<CFBundleRef>(entry.second);
        }
    }
    return nullptr;
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle)
{
    if (MustFail(__func__)) return nullptr;
    return CopyURL(As<StandInBundle>(bundle)->path);
}

CFURLRef CFBundleCopyPrivateFrameworksURL(CFBundleRef bundle)
{
    if (MustFail(__func__)) return nullptr;
    if (gPrivateFrameworks) {
        if (gPrivateFrameworks->empty()) return nullptr;
        return CopyURL([NSString stringWithUTF8String:gPrivateFrameworks->c_str()]);
    }
    NSString* const path = As<StandInBundle>(bundle)->path;
    return CopyURL([path stringByAppendingPathComponent:@"Contents/Frameworks"]);
}

CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle)
{
    if (MustFail(__func__)) return nullptr;
    return reinterpret_cast<CFDictionaryRef>(As<StandInBundle>(bundle)->information);
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    return [As<NSDictionary>(dictionary) objectForKey:As<NSString>(key)];
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name)
{
    StandInBundle* const opened = As<StandInBundle>(bundle);
    if (opened->library == nullptr) OpenLibrary(opened);
    if (opened->library == nullptr) return nullptr;
    return dlsym(opened->library, [As<NSString>(name) UTF8String]);
}
