#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "libraries/Symbols.h"

namespace {

// Writes the line without GNUstep's time and process.
void Log(NSString* format, ...)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    va_list arguments;
    va_start(arguments, format);
    NSString* const line = [[[NSString alloc] initWithFormat:format
                                                   arguments:arguments] autorelease];
    va_end(arguments);
    (void)std::fprintf(stderr, "%s\n", [line UTF8String]);  // there is no other place
    [pool release];
}

// The user's library folder is the data folder of this system, where the font manager looks too.
NSArray* SearchPath(NSSearchPathDirectory folder, NSSearchPathDomainMask domain, BOOL)
{
    if (folder != NSLibraryDirectory || domain != NSUserDomainMask) return [NSArray array];
    const char* const given = std::getenv("XDG_DATA_HOME");
    NSString* const path = given != nullptr && given[0] != 0
                               ? [NSString stringWithUTF8String:given]
                               : [@"~/.local/share" stringByExpandingTildeInPath];
    return path == nil ? [NSArray array] : [NSArray arrayWithObject:path];
}

}  // namespace

namespace macho {

void* FindInCocoa(const std::string& symbol)
{
    const std::string classPrefix = "OBJC_CLASS_$_";
    if (symbol.compare(0, classPrefix.size(), classPrefix) == 0) {
        return reinterpret_cast<void*>(objc_getClass(symbol.c_str() + classPrefix.size()));
    }
    if (symbol == "NSClassFromString") return reinterpret_cast<void*>(&NSClassFromString);
    if (symbol == "NSLog") return reinterpret_cast<void*>(&Log);
    if (symbol == "NSSearchPathForDirectoriesInDomains") {
        return reinterpret_cast<void*>(&SearchPath);
    }
    return nullptr;
}

}  // namespace macho
