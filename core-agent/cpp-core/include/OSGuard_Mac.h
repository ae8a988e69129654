#pragma once

#import <Foundation/Foundation.h>

// The one place where an NSException is caught. It is plain Objective-C: C++ on top of it can be
// compiled by every compiler, and what unwinds through C++ in between runs its destructors.

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*OSGuardedAction)(void* context);

// Calls action(context). Returns nil, or the NSException that ended it, which belongs to the
// innermost autorelease pool around this call; so the action may not open a pool of its own, whose
// end would take the exception along. Anything else that is thrown passes through.
NSException* OSGuard(OSGuardedAction action, void* context);

#ifdef __cplusplus
}
#endif
