#pragma once

#include <cstdint>

// Scalar types, opaque handles and error numbers of the host.
//
// The plug-in never looks behind a handle: it keeps it, compares it and hands it back. All handles
// belong to the host; how long one lives is told by the suite operation that gives it.

typedef int32_t AIErr;         // 0 for success, else a four-character code
typedef int32_t AIFaceScript;  // the host's numbers for writing systems
typedef void* AIFontKey;

struct _t_AIDocument;
struct _t_AIArt;
struct _t_AIMenuItemOpaque;
struct _t_AIMenuGroup;
struct SPPlugin;
struct _t_AINotifier;
struct _t_AITimer;
struct _t_AIFileFormat;
struct ArtObject;

typedef struct SPPlugin* SPPluginRef;
typedef struct _t_AINotifier* AINotifierHandle;
typedef struct _t_AITimer* AITimerHandle;
typedef struct _t_AIFileFormat* AIFileFormatHandle;
typedef struct ArtObject* AIArtHandle;
typedef _t_AIMenuItemOpaque* AIMenuItemHandle;
typedef _t_AIMenuGroup* AIMenuGroup;
typedef _t_AIArt* AIArtSet;

enum AICharacterEncoding : int32_t {
    kAIPlatformCharacterEncoding = 0,
    kAIUTF8CharacterEncoding = 1,
};

constexpr AIErr kHostSuccess = 0;
constexpr AIErr kHostBadParameter = 0x5041524D;  // 'PARM'
constexpr AIErr kHostOutOfMemory = 0x214D454D;   // '!MEM'
