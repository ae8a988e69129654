#pragma once

#include "HostInterface.h"
#include "PluginGlobals.h"

// Startup, shutdown and the about dialog. Main thread.

// Starts PluginCore, allocates the globals record, registers the menus, the notifiers and the file
// format with the host, and adds the timer. Returns 0, also if PluginCore refused to start, the
// host's error code, or kHostBadParameter for a null message. An exception other than a host's code
// passes through; then the record is freed and gGlobals is null.
AIErr StartupPlugin(SPInterfaceMessage* message);

// Reverses StartupPlugin, and sets gGlobals and the message's globals pointer to null. Idempotent:
// a second call returns 0. Returns PluginCore's status, the host's error code, or kHostBadParameter
// for a null message.
AIErr ShutdownPlugin(SPInterfaceMessage* message);

// Has PluginCore show its about dialog. Returns PluginCore's status, or 0 without a PluginCore.
AIErr AboutPlugin(SPInterfaceMessage* message);

// Subscribes to the twelve notifiers. Stops at the first failure and returns the host's code;
// notifiers added before it remain subscribed. Returns kHostBadParameter for a null message.
AIErr AddNotifiers(SPInterfaceMessage* message);
