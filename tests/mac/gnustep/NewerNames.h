/* What GNUstep knows only by its older name. Forced into every Objective-C file. */
#pragma once

#import <AppKit/NSEvent.h>

#define NSEventTypeKeyDown NSKeyDown
