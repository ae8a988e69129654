#include "GetPathToRunningProcess.h"

#import <AppKit/AppKit.h>

namespace {

std::string GetText(NSString* text)
{
    const char* const bytes = [text UTF8String];
    return bytes != nullptr ? std::string(bytes) : std::string();
}

}  // namespace

void GetUsersAppDataDirectory(std::string& out)
{
    NSArray* const folders =
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, YES);
    out = [folders count] != 0 ? GetText([folders objectAtIndex:0]) : std::string();
}

std::vector<std::string> OSGetRunningExecutables()
{
    std::vector<std::string> paths;
    NSArray* const applications = [[NSWorkspace sharedWorkspace] runningApplications];
    for (NSUInteger index = 0; index < [applications count]; ++index) {
        NSURL* const executable = [[applications objectAtIndex:index] executableURL];
        if (executable != nil) paths.push_back(GetText([executable path]));
    }
    return paths;
}

bool OSPathExists(const std::string& path)
{
    NSString* const text = [NSString stringWithUTF8String:path.c_str()];
    return text != nil && [[NSFileManager defaultManager] fileExistsAtPath:text];
}
