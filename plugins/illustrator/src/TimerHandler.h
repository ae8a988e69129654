#pragma once

#include "HostInterface.h"
#include "SDKPlugPlug.h"

// The host's timer, which gives PluginCore time on the main thread, and the link to the panel: over
// the host's event bus the panel learns the port that PluginCore listens on. Main thread.

// Adds the timer; the last step of startup. Returns 0 or the host's code.
AIErr AddTimers(SPInterfaceMessage* message);

// Handles one tick of the timer. Returns 0.
int GoTimer(AITimerMessage* message);

// Stops the timer. Returns the host's code, or 0, also if there is no timer.
AIErr RemoveTimers();

// Connects to the host's event bus, adds the listener for PortRequested and sends the port. If the
// listener is already added, does nothing. Returns what SDKPlugPlug::Load returned, or 0, also if
// the bus refused the listener.
unsigned int StartPlugPlug();

// The listener for the panel's request: sends the port. Uses neither argument. Lets no exception
// out.
void PortRequested(const csxs::event::Event* event, void* context);

// Sends the port to the panel, unless PluginCore has none.
void sendPortEvent();
