#pragma once

#import <Foundation/Foundation.h>

// Catches NSExceptions, for all other code. It is plain Objective-C, because not every compiler can
// catch them in Objective-C++. C++ frames between the throw and OSGuard run their destructors.

#ifdef __cplusplus
extern "C" {
#endif

// `context` is passed through unchanged.
typedef void (*OSGuardedAction)(void* context);

// Calls action(context) on the calling thread. Returns nil, or the NSException that ended it.
//
// The exception belongs to the innermost autorelease pool around this call. The action must not
// open a pool of its own, whose end would release the exception. Exceptions of other kinds pass
// through. [any thread]
NSException* OSGuard(OSGuardedAction action, void* context);

#ifdef __cplusplus
}
#endif
