#pragma once

#include "HostPlatform_Linux.h"

namespace macho {

// Makes the host's modal sessions messages to the shared NSApplication, so that the plug-in's
// category receives them. Does nothing if the host exports no table. Call it once.
void ConnectWindows();

// The table that the host exports; null if it exports none.
SHostPlatform* GetPlatform();

// The host's own function for modal sessions; null before ConnectWindows.
BeginModalSessionFunction GetHostsFunction();

}  // namespace macho
