#pragma once

#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

// Shared by the stand-in's own files.

// Counts one live reference unless the object is nil, and returns the object. The caller has
// already retained it.
void* GiveOut(id retainedObject);

// Returns true if FailNextCall was called for `function`, and uses that request up.
bool MustFail(const char* function);

template <class Ref>
Ref Give(id retainedObject)
{
    return static_cast<Ref>(GiveOut(retainedObject));
}

template <class Object>
Object* As(CFTypeRef reference)
{
    return static_cast<Object*>(const_cast<void*>(reference));
}

inline const char* PathOf(CFURLRef url) { return [[As<NSURL>(url) path] UTF8String]; }
