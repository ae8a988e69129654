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
// Foundation, "NSZeroPoint"
CF_EXPORT const NSPoint NSZeroPoint SINCE(10.0);
