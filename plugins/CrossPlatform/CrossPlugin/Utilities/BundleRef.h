#pragma once

// An open framework. The pointer is opaque; on macOS it is a CFBundleRef (BundleRef_Mac.h).
//
// Valid from LoadDllOrFramework or OSOpenBundle until the process ends; it needs no release.
typedef struct OpaqueBundle* BundleRef;
