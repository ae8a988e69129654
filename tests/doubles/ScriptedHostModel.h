#pragma once

#include <string>
#include <vector>

#include "HostInterface.h"

// What a scripted host consists of: plain records, filled in by the test or by the plug-in's calls.

// Stands in a list of story fonts for a font that is null.
inline const char* const kNullFont = "(a null font)";

struct ScriptedFrame {
    std::vector<std::string> runs;  // the PostScript name of each run's font
};

struct ScriptedDocument {
    std::string path;  // empty: the path operation gives an empty path
    bool modified = false;
    std::vector<ScriptedFrame> frames;
    std::vector<std::string> storyFonts;  // what the inspector of all stories gives, in order
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
    std::vector<unsigned char> bytes;  // 0xA5 throughout when handed out
    std::string name;
};

// An array behind a memory handle: the handle is the address of `first`.
struct ScriptedArtArray {
    std::vector<AIArtHandle> art;
    AIArtHandle* first;
};

// A counted reference of the text engine.
struct ScriptedReference {
    std::string kind;  // the suite's own name, such as "TextRange"
    int count;
    std::vector<std::string> fonts;  // font names of the runs, of the array or of the one font
    std::size_t position;            // of an iterator
};
