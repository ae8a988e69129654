#pragma once

#include <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

// Between the stand-in's own files.

// Counts the reference that is given out; nil gives null. The object is the caller's already.
void* GiveOut(id retainedObject);

// Whether the test wants this call to fail; once per wish.
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
