#pragma once

#include <cstddef>

#include "AIFilePath.h"
#include "AIUnicodeString.h"
#include "ATETypes.h"
#include "HostTypes.h"

// The host's own suites: tables of plain functions in the host's order. Every operation returns a
// host code, 0 for success, and runs on the host's main thread inside a message. "Current document"
// is the one in front; without one the document operations fail.

// Which art to match: art of `type` whose attributes under the mask `whichAttr` equal `attr`.
struct AIMatchingArtSpec {
    AIMatchingArtSpec(int16_t artType, int32_t attributeMask, int32_t attributes)
        : type(artType), whichAttr(attributeMask), attr(attributes)
    {
    }
    int16_t type;
    int32_t whichAttr;
    int32_t attr;
};

// The same for art sets.
struct AIArtSpec {
    AIArtSpec(int16_t artType, int32_t attributeMask, int32_t attributes)
        : type(artType), whichAttr(attributeMask), attr(attributes)
    {
    }
    int16_t type;
    int32_t whichAttr;
    int32_t attr;
};

// What a plug-in registers as a file format with. The codes are four characters read as a
// big-endian word.
struct PlatformAddFileFormatExData {
    int32_t numTypes;
    int32_t* typeList;
    ai::UnicodeString title;
    int32_t titleOrder;
    ai::UnicodeString extensions;
};

// A new menu item. `groupName` is not owned.
struct AIPlatformAddMenuItemDataUS {
    const char* groupName;
    ai::UnicodeString itemText;
};

struct AIDocumentSuite {
    // The current document's file path.
    AIErr (*GetDocumentFileSpecification)(ai::FilePath& file);
    // Whether the current document has unsaved changes.
    AIErr (*GetDocumentModified)(bool* modified);
    // The current document's handle.
    AIErr (*GetDocument)(_t_AIDocument** document);
};

struct AIFilePathSuite {
    AIErr (*DisposeFilePath)(ai::FilePath* path);
    AIErr (*GetFileName)(const ai::FilePath& path, bool displayForm, ai::UnicodeString& name);
    AIErr (*GetFullPath)(const ai::FilePath& path, bool displayForm, ai::UnicodeString& fullPath);
};

struct AIUnicodeStringSuite {
    AIErr (*Initialize)(ai::UnicodeString* string, const char* text, size_t byteLength,
                        AICharacterEncoding encoding);
    AIErr (*Destroy)(ai::UnicodeString* string);
    // Fills the buffer, whose block comes from "SP Blocks Suite", and gives the byte count.
    AIErr (*GetAs)(const ai::UnicodeString& string, AICharacterEncoding encoding,
                   ai::AutoBuffer<char, unsigned long, ai::SPAlloc>& buffer, unsigned long* count);
};

struct SPBlocksSuite {
    AIErr (*AllocateBlock)(size_t size, const char* debugName, void** block);
    AIErr (*FreeBlock)(void* block);
};

struct AIMdMemorySuite {
    // Frees an array that GetMatchingArt returned.
    AIErr (*MdMemoryDisposeHandle)(void** handle);
};

struct AIMatchingArtSuite {
    // A handle to an array of all art of the current document that fits one of the specs, in paint
    // order. Without a match the handle may be null. The caller frees it.
    AIErr (*GetMatchingArt)(AIMatchingArtSpec* specs, int16_t numSpecs, AIArtHandle*** matches,
                            int32_t* numMatches);
};

struct AIPlacedSuite {
    AIErr (*GetPlacedFilePathFromArt)(AIArtHandle art, ai::UnicodeString& path);
};

struct AITextFrameSuite {
    // Both give a counted reference that the caller releases.
    AIErr (*GetATETextRange)(AIArtHandle art, ATE::_TextRange** range);
    AIErr (*GetATETextFrame)(AIArtHandle art, ATE::_TextFrame** frame);
};

struct AIArtSetSuite {
    AIErr (*NewArtSet)(AIArtSet* set);
    // Frees the set and nulls the pointer.
    AIErr (*DisposeArtSet)(AIArtSet* set);
    AIErr (*CountArtSet)(AIArtSet set, int* count);
    AIErr (*IndexArtSet)(AIArtSet set, int index, AIArtHandle* art);
    // Adds all art of the current document that fits one of the specs.
    AIErr (*MatchingArtSet)(AIArtSpec* specs, short numSpecs, AIArtSet set);
};

struct AIFontSuite {
    AIErr (*GetDefaultFontForScript)(AIFaceScript script, AIFontKey* key);
    // Writes the name as a C string, cut to `bufferSize` bytes, zero byte included.
    AIErr (*GetPostScriptFontName)(AIFontKey key, char* buffer, short bufferSize);
    AIErr (*FontKeyFromFontRef)(ATE::_Font* font, AIFontKey* key);
};

struct AINotifierSuite {
    AIErr (*AddNotifier)(SPPluginRef self, const char* name, const char* type,
                         AINotifierHandle* notifier);
};

struct AIFileFormatSuite {
    AIErr (*AddFileFormatEx)(SPPluginRef self, const char* name, PlatformAddFileFormatExData* data,
                             int32_t options, AIFileFormatHandle* format, int32_t reserved);
    // Formats with a higher priority are asked first.
    AIErr (*SetFileFormatPriority)(AIFileFormatHandle format, int32_t priority);
};

struct AITimerSuite {
    // Makes and starts a timer that sends "AI Timer" / "AI Go"; `period` is in host ticks.
    AIErr (*AddTimer)(SPPluginRef self, const char* name, int32_t period, AITimerHandle* timer);
    AIErr (*GetTimerActive)(AITimerHandle timer, bool* active);
    AIErr (*SetTimerActive)(AITimerHandle timer, bool active);
};

struct AIMenuSuite {
    // Options: 1 asks for an update message before the item is shown, 4 makes a separator.
    AIErr (*AddMenuItem)(SPPluginRef self, const char* key, AIPlatformAddMenuItemDataUS* data,
                         int32_t options, AIMenuItemHandle* item);
    AIErr (*EnableItem)(AIMenuItemHandle item);
    AIErr (*DisableItem)(AIMenuItemHandle item);
    AIErr (*GetItemText)(AIMenuItemHandle item, ai::UnicodeString& text);
    AIErr (*CheckItem)(AIMenuItemHandle item, bool checked);
    AIErr (*GetMenuItemKeyboardShortcutDictionaryKey)(AIMenuItemHandle item, const char** key);
    // All items of the host, every plug-in's included.
    AIErr (*CountMenuItems)(int* count);
    AIErr (*GetNthMenuItem)(int index, AIMenuItemHandle* item);
    // Makes a group of that name as the item's submenu.
    AIErr (*AddMenuGroupAsSubMenu)(const char* name, int32_t options, AIMenuItemHandle item,
                                   AIMenuGroup* group);
    // Leaves the group as it was if the item has no submenu.
    AIErr (*GetItemSubMenuGroup)(AIMenuItemHandle item, AIMenuGroup* group);
    // The handle is dead afterwards.
    AIErr (*RemoveMenuItem)(AIMenuItemHandle item);
};
