#pragma once

#include "HostInterface.h"

// Handles the host's messages about menu items. Main thread. The JSON library's exceptions pass
// through.

// Fetches the menu JSON and sets the check mark and the enabled state of all items, unless the
// message's item isn't one of them. Returns 0, or kHostBadParameter for a null message.
int updateMenuItem(AIMenuMessage* message);

// Passes the chosen command to PluginCore, with the current document and its fonts. Returns 0, or
// kHostBadParameter for a null message.
int GoMenuItem(AIMenuMessage* message);
