#pragma once

// A framework opened by path, whose functions are looked up by name. On macOS it is a CFBundleRef.
typedef struct OpaqueBundle* BundleRef;

// Opens the framework folder at `path` (UTF-8) and returns its bundle, which is the caller's and
// stays open for the life of the process; null if there is none. If the framework has a version
// text, it is copied to `versionBuffer`, cut to `bufferSize` bytes, the zero byte included;
// otherwise the buffer stays as it is.
//
// Off macOS a framework X is a folder X.framework that holds the shared object X and
// Resources/Info.plist, XML or binary. Anything else is none.
BundleRef LoadDllOrFramework(const char* path, char* versionBuffer, unsigned int bufferSize);

// The address of the function, or null for a null bundle, a null name or one that isn't there.
void* GetFunctionPtr(BundleRef bundle, const char* name);
