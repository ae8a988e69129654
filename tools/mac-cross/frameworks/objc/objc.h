#pragma once

// The types of the language Objective-C itself.

#include <stdbool.h>

#define SINCE(version) __attribute__((availability(macos, introduced = version)))

// Objective-C Runtime, "Class", "id" and "SEL"
typedef struct objc_class* Class;
typedef struct objc_object* id;
typedef struct objc_selector* SEL;
// Objective-C Runtime, "BOOL": a signed char on Intel, bool on Apple silicon
#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
// Objective-C Runtime, "YES" and "NO"
#define YES __objc_yes
#define NO __objc_no
// Objective-C Runtime, "Nil" and "nil"
#ifdef __cplusplus
#define Nil nullptr
#define nil nullptr
#else
#define Nil ((Class)0)
#define nil ((id)0)
#endif
