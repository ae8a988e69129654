#pragma once

#include <string>
#include <vector>

#include "HostInterface.h"

// The model of a scripted host: plain records, set by the test or by the plug-in's calls.

// Codes of the scripted host: no document is open, or defaultFonts lacks the script.
constexpr AIErr kScriptedNoDocument = 0x4E4F4443;     // 'NODC'
constexpr AIErr kScriptedNoDefaultFont = 0x4E4F464E;  // 'NOFN'

// An entry of storyFonts that is the null font.
inline const char* const kNullFont = "(a null font)";

struct ScriptedFrame {
    std::vector<std::string> runs;  // the PostScript name of each run's font
};

struct ScriptedDocument {
    std::string path;  // empty: the document suite returns a null path
    bool modified = false;
    std::vector<ScriptedFrame> frames;
    std::vector<std::string> storyFonts;  // what the inspector of all stories returns, in order
    std::vector<std::string> placedPaths;
};

struct ScriptedNotifier {
    SPPluginRef self;
    std::string name;
    std::string type;
    AINotifierHandle handle;
};

struct ScriptedTimer {
    SPPluginRef self;
    std::string name;
    int period;
    bool active;
    AITimerHandle handle;
};

struct ScriptedFileFormat {
    SPPluginRef self;
    std::string name;
    std::vector<int32_t> types;
    std::string title;
    int titleOrder;
    std::string extensions;
    int options;
    int lastArgument;
    int priority;
    AIFileFormatHandle handle;
};

struct ScriptedMenuItem {
    SPPluginRef self;
    std::string key;
    std::string group;
    std::string text;
    int options;
    bool enabled;
    bool checked;
    bool removed;
    AIMenuItemHandle handle;
    AIMenuGroup submenu;
};

struct ScriptedMenuGroup {
    std::string name;
    AIMenuGroup handle;
};

struct ScriptedAlert {
    std::string messageText;
    std::string informativeText;
};

struct ScriptedBlock {
    std::vector<unsigned char> bytes;  // all 0xA5 at first
    std::string name;
};

// An array with a memory handle, which is the address of `first`.
struct ScriptedArtArray {
    std::vector<AIArtHandle> art;
    AIArtHandle* first;
};

// A reference of the text engine.
struct ScriptedReference {
    std::string kind;  // the suite's own name, such as "TextRange"
    int count;
    std::vector<std::string> fonts;  // font names of the runs or of the array, or the one font
    std::size_t position;            // of an iterator
};
