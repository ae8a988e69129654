#pragma once

#include "BundleRef.h"

// Opens a framework and writes a line to the trace.
//
// path            the framework's folder, in UTF-8; null is treated as missing
// versionBuffer   out: the framework's version, truncated, with a zero byte; unchanged if there is
//                 no framework or no version. Owned by the caller; may be null.
// bufferSize      capacity in bytes, including the zero byte
// Returns null if there is no such framework or it can't be loaded. The bundle remains open until
// the process ends. [main-thread]
//
// On Linux a framework X is a folder X.framework with the shared object X and Resources/Info.plist,
// in XML or binary form.
BundleRef LoadDllOrFramework(const char* path, char* versionBuffer, unsigned int bufferSize);

// Looks up a function of the bundle by name and writes a line to the trace.
//
// Returns its address, which is valid until the process ends. Null if the bundle has no such
// function, or `bundle` (not traced) or `name` is null. [main-thread]
void* GetFunctionPtr(BundleRef bundle, const char* name);
