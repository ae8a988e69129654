#pragma once

#include "HostTypes.h"

// What the plug-in registers.
namespace wrong {

// Begins a new life. Refuses to run if the host lacks a suite; runs without what can't be
// registered.
AIErr Start();

// The plug-in's menu item, or null.
AIMenuItemHandle GetItem();

bool IsOwnNotifier(AINotifierHandle notifier);

void StopTimer();

}  // namespace wrong
