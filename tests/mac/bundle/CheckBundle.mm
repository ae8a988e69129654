#include "CheckBundle.h"

#import <AppKit/AppKit.h>
#include <CoreFoundation/CoreFoundation.h>
#import <objc/runtime.h>

#include <cstdio>

#include "AppKitSession.h"
#include "ScriptedHost.h"

namespace {

constexpr AIErr kOutOfMemory = 0x214D454D;

std::vector<std::string> gAlerts;
std::string gFontManager;
int gFailures = 0;

void Check(bool isTrue, const char* what)
{
    std::printf("%s: %s\n", isTrue ? "ok" : "FAILED", what);
    if (!isTrue) ++gFailures;
}

}  // namespace

@interface NSAlert (BundleCheck)
- (NSInteger)recordInsteadOfRunning;
@end

@implementation NSAlert (BundleCheck)

- (NSInteger)recordInsteadOfRunning
{
    gAlerts.push_back(std::string([[self messageText] UTF8String]) + ": " +
                      [[self informativeText] UTF8String]);
    return 0;
}

@end

@interface InstalledFontManager : NSObject
- (NSURL*)executableURL;
@end

@implementation InstalledFontManager

- (NSURL*)executableURL
{
    return [NSURL fileURLWithPath:[NSString stringWithUTF8String:gFontManager.c_str()]];
}

@end

// Lists only the font manager of the check, and hides one that runs on the machine.
@interface NSWorkspace (BundleCheck)
- (NSArray*)applicationsOfTheCheck;
@end

@implementation NSWorkspace (BundleCheck)

- (NSArray*)applicationsOfTheCheck
{
    if (gFontManager.empty()) return [NSArray array];
    return [NSArray arrayWithObject:[[[InstalledFontManager alloc] init] autorelease]];
}

@end

namespace {

void Exchange(Class changed, SEL own, SEL replacement)
{
    method_exchangeImplementations(class_getInstanceMethod(changed, own),
                                   class_getInstanceMethod(changed, replacement));
}

// The bundle stays open until the process ends, as in a host.
CFBundleRef Open(const std::string& path)
{
    const CFStringRef text =
        CFStringCreateWithCString(nullptr, path.c_str(), kCFStringEncodingUTF8);
    if (text == nullptr) return nullptr;
    const CFURLRef url = CFURLCreateWithFileSystemPath(nullptr, text, kCFURLPOSIXPathStyle, true);
    CFRelease(text);
    if (url == nullptr) return nullptr;
    const CFBundleRef bundle = CFBundleCreate(nullptr, url);
    CFRelease(url);
    return bundle;
}

bool HasIdentifier(CFBundleRef bundle)
{
    const CFStringRef identifier = CFSTR("com.corvanta.AutoActivationPlugin.AI24");
    return CFBundleGetBundleWithIdentifier(identifier) == bundle;
}

void CheckMessages(PluginEntry entry, const std::string& fontManager)
{
    ScriptedHost host;
    const auto send = [&](const char* selector) {
        SPInterfaceMessage message = host.InterfaceMessage();
        return host.Send(entry, "SP Interface", selector, message);
    };
    Check(send("Startup") == 0, "a startup without PluginCore returns 0");
    Check(gAlerts == std::vector<std::string>{"Missing PluginCore: ./CorvantaFontManagement..."},
          "one alert says that PluginCore is missing");
    Check(host.notifiers.empty() && host.globals == nullptr, "nothing is registered");

    gFontManager = fontManager;
    host.FailCall("SPBlocksSuite.AllocateBlock", 1, kOutOfMemory);
    Check(send("Startup") == kOutOfMemory, "an exception of the startup becomes its result");
    Check(send("Startup") == 0, "a startup with PluginCore returns 0");
    Check(gAlerts.size() == 1, "without another alert");
    Check(host.notifiers.size() == 12 && host.globals != nullptr, "12 notifiers are registered");

    ScriptedFileFormatMessage check = host.FileFormatMessage("/a.ai");
    Check(host.Send(entry, "AI File Format", "AI Check", check.record) == -1,
          "the file check leaves the file to the host");
    Check(send("Shutdown") == 0, "the shutdown returns 0");
    Check(host.globals == nullptr, "the globals are released");
    Check(host.Faults().empty(), "every handle of the host is used correctly");
}

}  // namespace

int CheckBundle(const std::string& bundle, const std::string& fontManager)
{
    gFailures = 0;
    gAlerts.clear();
    StartApplication();
    const CFBundleRef opened = Open(bundle);
    Check(opened != nullptr, "the bundle opens");
    if (opened == nullptr) return gFailures;
    Check(HasIdentifier(opened), "the bundle has its identifier");
    const auto entry = reinterpret_cast<PluginEntry>(
        CFBundleGetFunctionPointerForName(opened, CFSTR("PluginMain")));
    Check(entry != nullptr, "the bundle exports PluginMain");
    Check(CFBundleGetFunctionPointerForName(opened, CFSTR("GoNotifier")) == nullptr,
          "no other function of the plug-in is exported");
    if (entry == nullptr) return gFailures;

    Exchange([NSAlert class], @selector(runModal), @selector(recordInsteadOfRunning));
    Exchange([NSWorkspace class], @selector(runningApplications),
             @selector(applicationsOfTheCheck));
    CheckMessages(entry, fontManager);
    Exchange([NSWorkspace class], @selector(runningApplications),
             @selector(applicationsOfTheCheck));
    Exchange([NSAlert class], @selector(runModal), @selector(recordInsteadOfRunning));
    return gFailures;
}
