#pragma once

#include "AIFilePath.h"
#include "HostTypes.h"
#include "SPBasicSuite.h"

// The records that come with a call of PluginMain. The host owns a record; it is valid for the
// length of the call. Every record opens with SPMessageData.

struct SPMessageData {
    int32_t checkWord;    // the host's own
    SPPluginRef self;     // the host's reference to this plug-in
    void* globals;        // kept by the host between messages, written by the plug-in
    SPBasicSuite* basic;  // valid during the call
};

// "SP Interface": startup, about, shutdown.
struct SPInterfaceMessage {
    SPMessageData d;
};

// "AI Notifier".
struct AINotifierMessage {
    SPMessageData d;
    AINotifierHandle notifier;  // what AddNotifier returned
    char* type;                 // the notifier's name
    void* notifyData;           // for document notifiers the _t_AIDocument* in question
};

// "AI Menu".
struct AIMenuMessage {
    SPMessageData d;
    AIMenuItemHandle menuItem;
};

// "AI Timer".
struct AITimerMessage {
    SPMessageData d;
};

// "AI File Format": the file that is being checked.
struct AIFileFormatMessage {
    SPMessageData d;
    ai::FilePath filePath;

    const ai::FilePath& GetFilePath() const { return filePath; }
};
