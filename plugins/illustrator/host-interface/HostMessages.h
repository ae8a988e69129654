#pragma once

#include "AIFilePath.h"
#include "HostTypes.h"
#include "SPBasicSuite.h"

// The records that the host passes to PluginMain. The host owns a record and everything that it
// points to; all of it is valid until PluginMain returns. Every record begins with SPMessageData.
// If a message arrives while the plug-in handles another one, the plug-in returns 1 and ignores it.
// [main-thread]

struct SPMessageData {
    int32_t checkWord;    // private to the host
    SPPluginRef self;     // the host's reference to this plug-in, the same in all messages
    void* globals;        // null at first; the plug-in may change it, and the host passes the last
                          // value in the next message
    SPBasicSuite* basic;  // gives access to all other suites
};

// Caller "SP Interface", selectors "Startup", "About" and "Shutdown".
struct SPInterfaceMessage {
    SPMessageData d;
};

// Caller "AI Notifier", selector "AI Notify".
struct AINotifierMessage {
    SPMessageData d;
    AINotifierHandle notifier;  // the handle that AddNotifier returned
    char* type;                 // the notifier's type, zero-terminated
    void* notifyData;           // the _t_AIDocument* that a document notifier is about
};

// Caller "AI Menu": selector "AI Go" when the user has chosen an item, "AI Update" before the host
// shows one.
struct AIMenuMessage {
    SPMessageData d;
    AIMenuItemHandle menuItem;  // that item
};

// Caller "AI Timer", selector "AI Go": one tick of a timer.
struct AITimerMessage {
    SPMessageData d;
};

// Caller "AI File Format", selector "AI Check": asks whether the plug-in reads a file.
struct AIFileFormatMessage {
    SPMessageData d;
    ai::FilePath filePath;  // the file; the path belongs to the host

    const ai::FilePath& GetFilePath() const { return filePath; }
};
