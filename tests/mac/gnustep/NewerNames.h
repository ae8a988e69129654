/* Defines names that GNUstep has only in their older form. Every Objective-C file includes it. */
#pragma once

#import <AppKit/NSEvent.h>

#define NSEventTypeApplicationDefined NSApplicationDefined
#define NSEventTypeKeyDown NSKeyDown
