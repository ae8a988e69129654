#pragma once

#include <string>

namespace headless {

// Restores the host's own functions in the platform table that the executable exports, forgets the
// frameworks folder and slow drawings, and sets the number of modal sessions to 0. A plug-in may
// have replaced an entry by a function of its module, which is a dangling pointer after the unload.
void ResetHostPlatform();

// The folder of the host's private frameworks, with the event bus: where it is installed, or in the
// tree where it is built. Empty if there is none.
std::string FindFrameworks();

// Sets the folder of the host's private frameworks, where the plug-in finds them, until the next
// reset. Empty for none.
void SetPrivateFrameworks(const std::string& folder);

// The number of the host's own modal sessions since the last reset. A plug-in that replaces the
// table's function must still call the host's own one.
unsigned long GetModalSessionCount();

}  // namespace headless

// Writes a line to the host's journal. PluginCore looks this function up by name in the executable.
//
// argsJson, resultJson   JSON; a string that isn't JSON is written as a string, null as null
// Does nothing while no journal is written, or if `side` or `op` is null. Never throws. Main thread
// only.
extern "C" __attribute__((visibility("default"))) void HeadlessHostJournal(const char* side,
                                                                           const char* op,
                                                                           const char* argsJson,
                                                                           const char* resultJson);

// Whether a document with this path is open: absolute, or the bare name of one without a file.
// PluginCore looks this function up by name in the executable. False for null. Never throws. Main
// thread only.
extern "C" __attribute__((visibility("default"))) bool HeadlessHostIsDocumentOpen(const char* path);

// The host's memory of what Ghostscript didn't draw in time, see documents::SlowDrawings.
// PluginCore looks these functions up by name in the executable and shares the memory, so that an
// endless file costs one time limit and not one for the host and one for PluginCore. Null is
// ignored. Never throw. Thread-safe.
extern "C" __attribute__((visibility("default"))) double HeadlessHostGetDrawingSeconds(
    const char* drawing);
extern "C" __attribute__((visibility("default"))) void HeadlessHostAddDrawingSeconds(
    const char* drawing, double seconds);
