#pragma once

#include <AppKit/NSApplication.h>
#include <AppKit/NSWindow.h>
