#pragma once

#include <cstdint>

// Scalar types, opaque handles and error codes of the host.
//
// Handles belong to the host. The plug-in stores them, compares them and passes them back, but
// never dereferences them. The operation that returns a handle says how long it is valid.

typedef int32_t AIErr;         // 0 for success, otherwise an error, mostly a four-character code
typedef int32_t AIFaceScript;  // a writing system, in the host's numbering
typedef void* AIFontKey;       // a font of the host; null is no font

struct _t_AIDocument;
struct _t_AIArt;
struct _t_AIMenuItemOpaque;
struct _t_AIMenuGroup;
struct SPPlugin;
struct _t_AINotifier;
struct _t_AITimer;
struct _t_AIFileFormat;
struct ArtObject;

typedef struct SPPlugin* SPPluginRef;                // the plug-in, as the host knows it
typedef struct _t_AINotifier* AINotifierHandle;      // a subscription to a notifier
typedef struct _t_AITimer* AITimerHandle;            // a timer
typedef struct _t_AIFileFormat* AIFileFormatHandle;  // a registered file format
typedef struct ArtObject* AIArtHandle;               // an art object of a document
typedef _t_AIMenuItemOpaque* AIMenuItemHandle;       // a menu item
typedef _t_AIMenuGroup* AIMenuGroup;                 // a group of menu items
typedef _t_AIArt* AIArtSet;                          // a set of art, see AIArtSetSuite

// Encodings of ai::UnicodeString.
enum AICharacterEncoding : int32_t {
    kAIPlatformCharacterEncoding = 0,  // the platform's own; UTF-8 on Linux
    kAIUTF8CharacterEncoding = 1,
};

constexpr AIErr kHostSuccess = 0;
constexpr AIErr kHostBadParameter = 0x5041524D;  // 'PARM'
constexpr AIErr kHostOutOfMemory = 0x214D454D;   // '!MEM'
