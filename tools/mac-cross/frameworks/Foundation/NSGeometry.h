#pragma once

#include <Foundation/NSObject.h>

// Core Foundation, "CGFloat"
typedef double CGFloat;
// Core Foundation, "CGPoint"; Foundation, "NSPoint"
typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;
typedef CGPoint NSPoint;
// Core Foundation, "CGSize"
typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;
// Core Foundation, "CGRect"; Foundation, "NSRect"
typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;
typedef CGRect NSRect;
// Foundation, "NSMakeRect"
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    NSRect rect = {{x, y}, {width, height}};
    return rect;
}
// Foundation, "NSZeroPoint"
CF_EXPORT const NSPoint NSZeroPoint SINCE(10.0);
