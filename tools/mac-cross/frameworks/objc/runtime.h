#pragma once

#include <objc/objc.h>

#ifdef __cplusplus
extern "C" {
#endif

// Objective-C Runtime, "Method"
typedef struct objc_method* Method;

// Objective-C Runtime, "IMP"
typedef void (*IMP)(void);

// Objective-C Runtime, "class_addMethod"
BOOL class_addMethod(Class type, SEL name, IMP function, const char* encoding) SINCE(10.5);
// Objective-C Runtime, "objc_allocateClassPair"
Class objc_allocateClassPair(Class parent, const char* name, unsigned long extraBytes) SINCE(10.5);
// Objective-C Runtime, "objc_registerClassPair"
void objc_registerClassPair(Class type) SINCE(10.5);
// Objective-C Runtime, "class_getInstanceMethod"
Method class_getInstanceMethod(Class type, SEL name) SINCE(10.0);
// Objective-C Runtime, "method_exchangeImplementations"
void method_exchangeImplementations(Method one, Method other) SINCE(10.5);

#ifdef __cplusplus
}
#endif
