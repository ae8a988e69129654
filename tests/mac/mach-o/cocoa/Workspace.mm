#include <dirent.h>
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "StandInApplication.h"
#import "cocoa/AppKit.h"

namespace {

std::vector<unsigned long> ListProcessNumbers()
{
    std::vector<unsigned long> numbers;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("/proc"), closedir);
    if (!folder) return numbers;
    while (const dirent* const entry = readdir(folder.get())) {
        char* end = nullptr;
        const unsigned long number = strtoul(entry->d_name, &end, 10);
        if (number != 0 && *end == 0) numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

}  // namespace

@implementation NSWorkspace

+ (NSWorkspace*)sharedWorkspace
{
    static NSWorkspace* sWorkspace = nil;
    if (sWorkspace == nil) sWorkspace = [[self alloc] init];
    return sWorkspace;
}

- (NSArray*)runningApplications
{
    NSMutableArray* const applications = [NSMutableArray array];
    for (const unsigned long number : ListProcessNumbers()) {
        char target[PATH_MAX] = {};
        const std::string link = "/proc/" + std::to_string(number) + "/exe";
        if (readlink(link.c_str(), target, sizeof target - 1) <= 0) continue;
        NSString* const path = [NSString stringWithUTF8String:target];
        if (path == nil) continue;
        StandInApplication* const application =
            [[StandInApplication alloc] initWithExecutable:path];
        [applications addObject:application];
        [application release];
    }
    return applications;
}

@end
