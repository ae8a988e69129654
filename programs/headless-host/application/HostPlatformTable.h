#pragma once

#include <string>

#include "HostPlatform_Linux.h"

namespace headless {

// Puts the host's own functions back into the table that the executable exports. A guest may have
// exchanged a slot for a function of its module, which is gone once the guest is unloaded.
void ResetHostPlatform();

// Where the guest finds the host's own frameworks; an empty text for nowhere. Until the next reset.
void SetPrivateFrameworks(const std::string& folder);

// How many real modal sessions were begun since the last reset: whoever exchanges the slot must
// still begin the real one.
unsigned long GetModalSessionCount();

}  // namespace headless

// For PluginCore, which finds it by name in the executable: writes a line to the host's journal.
// `argsJson` and `resultJson` are JSON texts; text that isn't JSON is written as a string, null as
// null. Does nothing while no journal is written. Never throws.
extern "C" __attribute__((visibility("default"))) void HeadlessHostJournal(const char* side,
                                                                           const char* op,
                                                                           const char* argsJson,
                                                                           const char* resultJson);
