#pragma once

#include "HostInterface.h"
#include "SDKPlugPlug.h"

// Lends PluginCore the host's main thread at every tick of the host, and tells the panel the port
// that PluginCore listens on.

// Adds the timer at the end of startup. 0 or the host's code.
AIErr AddTimers(SPInterfaceMessage* message);

// One tick. Always 0.
int GoTimer(AITimerMessage* message);

// Stops the timer. 0, also if there is none, or the host's code.
AIErr RemoveTimers();

// Brings the link to the panel up; once it stands, only tests that. 0, also if the listener
// couldn't be added, or what SDKPlugPlug::Load gave.
unsigned int StartPlugPlug();

// The panel asks for the port. Called by the event bus; neither argument is read.
void PortRequested(const csxs::event::Event* event, void* context);

// Tells the panel the port; nothing is sent if PluginCore has none.
void sendPortEvent();
