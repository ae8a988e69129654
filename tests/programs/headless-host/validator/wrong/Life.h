#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "HostMessages.h"

// What the plug-in knows while it runs, and the moments at which a fault may act.
namespace wrong {

enum class Moment {
    kMessage,   // any message, before it is handled
    kNested,    // a message inside of another one; ignored
    kRefused,   // a message after a start that was refused; ignored
    kAfterEnd,  // a message after the shutdown; ignored
    kStarting,  // everything is there and nothing registered
    kOpened,    // these have a `document`
    kNew,       //
    kChanged,   // after the walk through its text
    kAboutToClose,
    kClosed,
    kSaved,
    kSavedAs,
    kFonts,
    kTick,
    kUpdate,
    kChosen,
    kCheck,  // `checked` is the path
    kAbout,
    kReload,
    kFrame,      // a text frame was read; `frameFonts` has one name per run
    kWalked,     // a document was read; `frames` and `placed` are its numbers
    kFailed,     // `failedCall` has failed with `status`
    kException,  // inside of a handler: an exception that isn't the plug-in's own
    kEnding,     // the application shuts down
    kShutdown,
    kUnload,
};

struct Document {
    void* handle = nullptr;
    std::string path;  // not absolute if it has no file
    bool isNew = false;
    bool isChanged = false;
    bool wasSaved = false;
    bool isClosing = false;  // the host has said so
    uintmax_t fileSize = 0;  // when it was opened or saved
};

struct Life {
    Moment moment = Moment::kMessage;
    std::string caller;
    std::string selector;
    SPMessageData* data = nullptr;
    bool isRunning = false;
    bool hasEnded = false;  // the application shuts down: nothing is handled any more
    bool hasShutDown = false;
    bool maySucceed = true;  // a fault can have the start refused, or any message fail
    std::vector<Document> documents;
    Document* document = nullptr;  // that the message is about, or null
    size_t opened = 0;             // documents so far
    size_t closedInARow = 0;       // documents closed since the last message about something else
    std::string checked;           // the file of the last check, until a document is opened
    size_t checks = 0;
    size_t ticks = 0;
    size_t updates = 0;
    std::vector<std::string> frameFonts;
    size_t frames = 0;
    size_t placed = 0;
    bool sawDialog = false;   // since the last opening
    bool sawUnknown = false;  // the last walk found a font that isn't called Default-Regular
    std::string failedCall;
    std::string failedSuite;  // if it is AcquireSuite
    AIErr status = 0;
    size_t closedInside = 0;  // documents closed inside of a call
    std::vector<void*> kept;  // blocks, freed at the end

    bool Is(Moment which) const { return moment == which; }
    bool IsIn(const char* which) const { return selector == which; }
    bool HasFailed(const char* call) const { return Is(Moment::kFailed) && failedCall == call; }
    bool IsAnyFileGone() const;
};

extern Life life;

// Has the fault act, whose exceptions leave PluginMain.
void Tell(Moment moment);

// Whether the exception that is being handled is the fault's.
bool IsFault();

// A call of the host failed.
struct Failure {
    AIErr status;
};

// Throws Failure unless the status is 0.
void Expect(const char* call, AIErr status);

// Makes the failure known and goes on.
void Note(const char* call, AIErr status);

}  // namespace wrong
