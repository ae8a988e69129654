// bundle-check BUNDLE FONT-MANAGER: checks the plug-in's bundle on a Mac. It is a universal program
// and needs no googletest, so that `arch -x86_64` and `arch -arm64` run both slices of the bundle.

#import <Foundation/Foundation.h>

#include <cstdio>

#include "CheckBundle.h"

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: bundle-check BUNDLE FONT-MANAGER\n");
        return 2;
    }
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
#if defined(__x86_64__)
    std::printf("bundle-check: x86_64\n");
#else
    std::printf("bundle-check: arm64\n");
#endif
    const int failures = CheckBundle(arguments[1], arguments[2]);
    [pool release];
    return failures == 0 ? 0 : 1;
}
