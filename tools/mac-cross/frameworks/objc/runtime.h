#pragma once

#include <objc/objc.h>

#ifdef __cplusplus
extern "C" {
#endif

// Objective-C Runtime, "Method"
typedef struct objc_method* Method;

// Objective-C Runtime, "class_getInstanceMethod"
Method class_getInstanceMethod(Class type, SEL name) SINCE(10.0);
// Objective-C Runtime, "method_exchangeImplementations"
void method_exchangeImplementations(Method one, Method other) SINCE(10.5);

#ifdef __cplusplus
}
#endif
