#include <map>
#include <set>
#include <string>

#include "CoreFoundationStandIn.h"
#import "References.h"

namespace {

long gLiveReferences = 0;

std::multiset<std::string>& Failures()
{
    static std::multiset<std::string> failures;
    return failures;
}

NSString* MakeConstant(const char* text)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    NSString* const string = [[NSString alloc] initWithUTF8String:text];
    [pool release];
    return string;
}

}  // namespace

const CFStringRef kCFURLContentModificationDateKey =
    __CFStringMakeConstantString("NSURLContentModificationDateKey");
const CFCalendarIdentifier kCFGregorianCalendar = __CFStringMakeConstantString("gregorian");

long CoreFoundationStandIn::LiveReferences() { return gLiveReferences; }

void CoreFoundationStandIn::FailNextCall(const std::string& function)
{
    Failures().insert(function);
}

bool MustFail(const char* function)
{
    const auto found = Failures().find(function);
    if (found == Failures().end()) return false;
    Failures().erase(found);
    return true;
}

void* GiveOut(id retainedObject)
{
    if (retainedObject != nil) ++gLiveReferences;
    return retainedObject;
}

void CFRelease(CFTypeRef object)
{
    --gLiveReferences;
    [As<NSObject>(object) release];
}

CFTypeID CFStringGetTypeID(void) { return reinterpret_cast<CFTypeID>([NSString class]); }

CFTypeID CFGetTypeID(CFTypeRef object)
{
    const bool isString = [As<NSObject>(object) isKindOfClass:[NSString class]];
    return isString ? CFStringGetTypeID() : 1;
}

CFStringRef __CFStringMakeConstantString(const char* text)
{
    static std::map<std::string, NSString*> sConstants;
    NSString*& constant = sConstants[text];
    if (constant == nil) constant = MakeConstant(text);
    return reinterpret_cast<CFStringRef>(constant);
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* text, CFStringEncoding)
{
    if (MustFail(__func__)) return nullptr;
    return Give<CFStringRef>([[NSString alloc] initWithUTF8String:text]);
}

CFIndex CFStringGetLength(CFStringRef text)
{
    return static_cast<CFIndex>([As<NSString>(text) length]);
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding) { return length * 3; }

Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size, CFStringEncoding)
{
    if (MustFail(__func__)) return false;
    return [As<NSString>(text) getCString:buffer
                                maxLength:static_cast<NSUInteger>(size)
                                 encoding:NSUTF8StringEncoding];
}
