#pragma once

#include <cstddef>

#include "AIUnicodeString.h"
#include "ATETypes.h"
#include "HostTypes.h"

namespace ai {
class FilePath;
}

// The host's own suites: tables of functions, in the order of the host's tables. SPBasicSuite gives
// them out by name and version. These rules apply to every operation unless its comment differs:
//
// Results     0, or an error code: kHostBadParameter for a null pointer, an unknown or expired
//             handle, or a missing current document. No operation throws.
// Outputs     Set on success only; a failed call leaves them unchanged.
// Strings,    `const char*` arguments end with a zero byte, and the host copies them. For an output
// paths       ai::UnicodeString& or ai::FilePath& the host frees what the object held; the object
//             then owns the result and frees it in its destructor.
// Handles     Belong to the host. An art handle is valid until the art is deleted or its document
//             is closed.
// Thread      [main-thread], while the plug-in handles a message and holds the suite.
//
// The "current document" is the frontmost one.

// Which art to match: art of `type` whose attributes, masked with `whichAttr`, equal `attr`. A mask
// of 0 tests no attribute, so hidden and locked art matches too.
struct AIMatchingArtSpec {
    AIMatchingArtSpec(int16_t artType, int32_t attributeMask, int32_t attributes)
        : type(artType), whichAttr(attributeMask), attr(attributes)
    {
    }
    int16_t type;  // see ArtTypes.h
    int32_t whichAttr;
    int32_t attr;
};

// The same as AIMatchingArtSpec, for art sets.
struct AIArtSpec {
    AIArtSpec(int16_t artType, int32_t attributeMask, int32_t attributes)
        : type(artType), whichAttr(attributeMask), attr(attributes)
    {
    }
    int16_t type;
    int32_t whichAttr;
    int32_t attr;
};

// A file format to register. A type code is four characters read as a big-endian word, as in
// 'PDF ' = 0x50444620.
struct PlatformAddFileFormatExData {
    int32_t numTypes;   // number of codes in typeList
    int32_t* typeList;  // owned by the plug-in
    ai::UnicodeString title;
    int32_t titleOrder;
    ai::UnicodeString extensions;  // without dots, separated by commas: "ai,eps"
};

// A menu item to add.
struct AIPlatformAddMenuItemDataUS {
    const char* groupName;       // the group to append to, owned by the plug-in
    ai::UnicodeString itemText;  // may be null for a separator
};

// "AI Document Suite", version 1017.
struct AIDocumentSuite {
    // Returns the current document's full path, or its bare name if it has no file yet.
    AIErr (*GetDocumentFileSpecification)(ai::FilePath& file);

    // Returns whether the current document has unsaved changes.
    AIErr (*GetDocumentModified)(bool* modified);

    // Returns the current document's handle, which identifies the document until it is closed.
    AIErr (*GetDocument)(_t_AIDocument** document);
};

// "AI File Path Suite", version 1006.
struct AIFilePathSuite {
    // Frees the host's path and makes `path` null. It must not be null already.
    AIErr (*DisposeFilePath)(ai::FilePath* path);

    // Returns the last component of a path that is not null. `displayForm` selects the text to show
    // to the user instead of the one that the file system uses.
    AIErr (*GetFileName)(const ai::FilePath& path, bool displayForm, ai::UnicodeString& name);

    // Returns the whole path, in the same way.
    AIErr (*GetFullPath)(const ai::FilePath& path, bool displayForm, ai::UnicodeString& fullPath);
};

// "AI Unicode String Suite", version 1008.
struct AIUnicodeStringSuite {
    // Creates a host string from `byteLength` bytes, which may contain zero bytes and need no zero
    // byte at the end. Overwrites `string` without freeing what it held. The caller frees the new
    // string with Destroy.
    AIErr (*Initialize)(ai::UnicodeString* string, const char* text, size_t byteLength,
                        AICharacterEncoding encoding);

    // Frees the host's string and makes `string` null. It must not be null already.
    AIErr (*Destroy)(ai::UnicodeString* string);

    // Converts a string, which may be null, to bytes.
    //
    // buffer  in: a block from "SP Blocks Suite", which the host frees, or null; out: a new block
    //         with the text, which the buffer owns, or null for an empty text
    // count   out: the number of bytes. There is no zero byte at the end.
    AIErr (*GetAs)(const ai::UnicodeString& string, AICharacterEncoding encoding,
                   ai::AutoBuffer<char, unsigned long, ai::SPAlloc>& buffer, unsigned long* count);
};

// "SP Blocks Suite", version 2.
struct SPBlocksSuite {
    // Allocates `size` bytes, aligned for any type and not initialized. The caller frees the block
    // with FreeBlock. `debugName` only appears in the host's diagnostics.
    AIErr (*AllocateBlock)(size_t size, const char* debugName, void** block);

    // Frees a block, which must not be null.
    AIErr (*FreeBlock)(void* block);
};

// "AI MdMemory Suite", version 1003.
struct AIMdMemorySuite {
    // Frees an array that GetMatchingArt returned.
    AIErr (*MdMemoryDisposeHandle)(void** handle);
};

// "AI Matching Art Suite", version 1007.
struct AIMatchingArtSuite {
    // Finds all art of the current document that matches at least one of the specs.
    //
    // specs       array of `numSpecs` specs
    // matches     out: handle to an array of `numMatches` art handles in paint order, so that
    //             (**matches)[0] is the first; can be null if nothing matches. The caller frees it
    //             with MdMemoryDisposeHandle.
    // numMatches  out: the length of the array
    AIErr (*GetMatchingArt)(AIMatchingArtSpec* specs, int16_t numSpecs, AIArtHandle*** matches,
                            int32_t* numMatches);
};

// "AI Placed Suite", version 1009.
struct AIPlacedSuite {
    // Returns the full path of the file that placed art is linked to. Fails for other art.
    AIErr (*GetPlacedFilePathFromArt)(AIArtHandle art, ai::UnicodeString& path);
};

// "AI Text Frame Suite", version 1004. Both operations fail for art that is no text frame. The
// caller releases the reference through its text engine suite, as the wrappers do.
struct AITextFrameSuite {
    // Returns the text of the frame.
    AIErr (*GetATETextRange)(AIArtHandle art, ATE::_TextRange** range);

    // Returns the text engine's object for the frame.
    AIErr (*GetATETextFrame)(AIArtHandle art, ATE::_TextFrame** frame);
};

// "AI Art Set Suite", version 1009.
struct AIArtSetSuite {
    // Creates an empty set. The caller frees it with DisposeArtSet.
    AIErr (*NewArtSet)(AIArtSet* set);

    // Frees the set and makes the pointer null.
    AIErr (*DisposeArtSet)(AIArtSet* set);

    // Returns the number of members.
    AIErr (*CountArtSet)(AIArtSet set, int* count);

    // Returns the member at `index`, from 0.
    AIErr (*IndexArtSet)(AIArtSet set, int index, AIArtHandle* art);

    // Appends all art of the current document that matches at least one of the specs, in paint
    // order.
    AIErr (*MatchingArtSet)(AIArtSpec* specs, short numSpecs, AIArtSet set);
};

// "AI Font Suite", version 1006. Font keys remain valid until the host ends.
struct AIFontSuite {
    // Returns the host's default font for a script. For a script that the host doesn't know it can
    // fail, or return the default font of the system.
    AIErr (*GetDefaultFontForScript)(AIFaceScript script, AIFontKey* key);

    // Writes the font's PostScript name with a zero byte to `buffer`, cut to `bufferSize` bytes
    // including the zero byte. `bufferSize` is at least 1.
    AIErr (*GetPostScriptFontName)(AIFontKey key, char* buffer, short bufferSize);

    // Returns the key of a text engine font; doesn't release the reference. Fails for the null
    // font.
    AIErr (*FontKeyFromFontRef)(ATE::_Font* font, AIFontKey* key);
};

// "AI Notifier Suite", version 1004.
struct AINotifierSuite {
    // Subscribes to a notifier: from now on the host sends "AI Notifier" / "AI Notify".
    //
    // self      the plug-in's reference, from a message
    // name      the plug-in's name for the subscription, for diagnostics
    // type      the host's notifier, such as "AI Document Opened Notifier"
    // notifier  out: handle that comes with each message; valid until the host ends
    AIErr (*AddNotifier)(SPPluginRef self, const char* name, const char* type,
                         AINotifierHandle* notifier);
};

// "AI File Format Suite", version 1015.
struct AIFileFormatSuite {
    // Registers a file format: the host sends "AI File Format" / "AI Check" for every file before
    // it opens it. A result of -1 for that message leaves the file to other formats.
    //
    // self      the plug-in's reference, from a message
    // name      name of the format
    // data      copied by the host
    // options   1; no other value is used
    // format    out: valid until the host ends
    // reserved  0
    AIErr (*AddFileFormatEx)(SPPluginRef self, const char* name, PlatformAddFileFormatExData* data,
                             int32_t options, AIFileFormatHandle* format, int32_t reserved);

    // The host checks formats in descending order of priority.
    AIErr (*SetFileFormatPriority)(AIFileFormatHandle format, int32_t priority);
};

// "AI Timer Suite", version 1005.
struct AITimerSuite {
    // Creates and starts a timer, which sends "AI Timer" / "AI Go".
    //
    // self    the plug-in's reference, from a message
    // name    for diagnostics
    // period  in ticks of 1/60 second, at least 1
    // timer   out: valid until the host ends. A timer can be stopped but not removed.
    AIErr (*AddTimer)(SPPluginRef self, const char* name, int32_t period, AITimerHandle* timer);

    // Returns whether the timer is running.
    AIErr (*GetTimerActive)(AITimerHandle timer, bool* active);

    // Starts or stops the timer.
    AIErr (*SetTimerActive)(AITimerHandle timer, bool active);
};

// "AI Menu Suite", version 1011. An item handle is valid until RemoveMenuItem, or until the host
// ends.
struct AIMenuSuite {
    // Appends an item to a group.
    //
    // self     the plug-in's reference, from a message
    // key      the item's key in the keyboard shortcuts; null for none
    // data     group and text, copied by the host
    // options  1: the host sends "AI Menu" / "AI Update" before it shows the item; 4: the item is a
    //          separator
    // item     out: the item, which comes with each of its messages
    AIErr (*AddMenuItem)(SPPluginRef self, const char* key, AIPlatformAddMenuItemDataUS* data,
                         int32_t options, AIMenuItemHandle* item);

    // Makes an item selectable. New items are.
    AIErr (*EnableItem)(AIMenuItemHandle item);

    // Makes an item unselectable.
    AIErr (*DisableItem)(AIMenuItemHandle item);

    // Returns the text that the item shows.
    AIErr (*GetItemText)(AIMenuItemHandle item, ai::UnicodeString& text);

    // Sets or clears the item's check mark.
    AIErr (*CheckItem)(AIMenuItemHandle item, bool checked);

    // Returns the item's key, "" or null if it has none. The host owns the string, which is valid
    // as long as the item.
    AIErr (*GetMenuItemKeyboardShortcutDictionaryKey)(AIMenuItemHandle item, const char** key);

    // Returns the number of all menu items, those of the host and of other plug-ins included.
    AIErr (*CountMenuItems)(int* count);

    // Returns the item at `index`, from 0.
    AIErr (*GetNthMenuItem)(int index, AIMenuItemHandle* item);

    // Creates a group `name` and makes it the item's submenu. `options` is 0. Items are added to
    // the group by its name; the handle is valid until the host ends.
    AIErr (*AddMenuGroupAsSubMenu)(const char* name, int32_t options, AIMenuItemHandle item,
                                   AIMenuGroup* group);

    // Returns the group of the item's submenu. Without a submenu it returns 0 and leaves `group`
    // unchanged.
    AIErr (*GetItemSubMenuGroup)(AIMenuItemHandle item, AIMenuGroup* group);

    // Removes the item from its menu. The handle is invalid afterwards.
    AIErr (*RemoveMenuItem)(AIMenuItemHandle item);
};
