#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>
#include <dlfcn.h>
#import <objc/runtime.h>

#include "CoreFoundationStandIn.h"
#include "libraries/Foundation.h"
#include "libraries/Symbols.h"

namespace macho {

namespace {

// The stand-in has these as macros.
const double sSecondsFrom1970 = kCFAbsoluteTimeIntervalSince1970;
const CFAllocatorRef sDefaultAllocator = kCFAllocatorDefault;

void* FindInStandIn(const char* symbol)
{
    Dl_info standIn;
    if (dladdr(reinterpret_cast<void*>(&CFRelease), &standIn) == 0) return nullptr;
    static void* const sStandIn = dlopen(standIn.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    return sStandIn == nullptr ? nullptr : dlsym(sStandIn, symbol);
}

}  // namespace

void* FindInCoreFoundation(const std::string& symbol)
{
    if (symbol == "kCFAbsoluteTimeIntervalSince1970") return const_cast<double*>(&sSecondsFrom1970);
    if (symbol == "kCFAllocatorDefault") return const_cast<CFAllocatorRef*>(&sDefaultAllocator);
    if (symbol == "__CFConstantStringClassReference") {
        return reinterpret_cast<void*>(objc_getClass("MachOConstantString"));
    }
    // The table of a handler has the class's name for the runtime of gcc.
    if (symbol == "OBJC_EHTYPE_$_NSException") return const_cast<char*>("NSException");
    return FindInStandIn(symbol.c_str());
}

void SetBundles(const std::string& plugin, const std::string& privateFrameworks)
{
    CoreFoundationStandIn::SetPrivateFrameworks(privateFrameworks);
    const CFStringRef path =
        CFStringCreateWithCString(kCFAllocatorDefault, plugin.c_str(), kCFStringEncodingUTF8);
    const CFURLRef url =
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, path, kCFURLPOSIXPathStyle, true);
    // Never released: the bundle is loaded for the life of the process.
    (void)CFBundleCreate(kCFAllocatorDefault, url);
    CFRelease(url);
    CFRelease(path);
}

PoolOfMessage::PoolOfMessage() : mPool([[NSAutoreleasePool alloc] init]) {}

PoolOfMessage::~PoolOfMessage() { [static_cast<NSAutoreleasePool*>(mPool) release]; }

}  // namespace macho
