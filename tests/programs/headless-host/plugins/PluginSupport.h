#pragma once

#include <string>

#include "AISuites.h"
#include "ATESuites.h"
#include "ArtTypes.h"
#include "HostMessages.h"
#include "SPBasicSuite.h"

// What the test plug-ins share. Each module has its own copy of these variables.
namespace plugin {

inline SPBasicSuite* basic = nullptr;
inline SPPluginRef self = nullptr;
inline AINotifierHandle opened = nullptr;
inline AINotifierHandle closed = nullptr;

// Acquires a suite for as long as the object lives.
template <class Suite>
class Held {
public:
    Held(const char* name, int version) : mName(name), mVersion(version)
    {
        if (basic->AcquireSuite(name, version, &mSuite) != kHostSuccess) mSuite = nullptr;
    }
    ~Held()
    {
        if (mSuite != nullptr) (void)basic->ReleaseSuite(mName, mVersion);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    bool IsThere() const { return mSuite != nullptr; }
    const Suite* operator->() const { return mSuite; }

private:
    const char* mName;
    int mVersion;
    const Suite* mSuite = nullptr;
};

// Returns the first text frame of the current document.
inline AIArtHandle GetFirstFrame()
{
    Held<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    AIArtSpec spec(kTextFrameArt, 0, 0);
    AIArtSet set = nullptr;
    AIArtHandle art = nullptr;
    (void)sets->NewArtSet(&set);
    (void)sets->MatchingArtSet(&spec, 1, set);
    (void)sets->IndexArtSet(set, 0, &art);
    (void)sets->DisposeArtSet(&set);
    return art;
}

// Handles Startup: subscribes to two notifiers and sets the globals pointer, without which the host
// takes the plug-in for one that refuses to run.
inline void Start(SPMessageData& data)
{
    basic = data.basic;
    self = data.self;
    data.globals = &basic;
    Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
    if (!notifiers.IsThere()) return;
    (void)notifiers->AddNotifier(self, "Opened", "AI Document Opened Notifier", &opened);
    (void)notifiers->AddNotifier(self, "Closed", "AI Document Closed Notifier", &closed);
}

// Handles all messages of a plug-in that only calls `onOpened` and `onClosed` for the notifiers of
// these names; either may be null.
inline AIErr Serve(const char* caller, const char* selector, void* message,
                   void (*onOpened)(_t_AIDocument*), void (*onClosed)(_t_AIDocument*))
{
    auto& data = *static_cast<SPMessageData*>(message);
    basic = data.basic;
    const std::string what = std::string(caller) + "/" + selector;
    if (what == "SP Interface/Startup") Start(data);
    if (what == "SP Interface/Shutdown") data.globals = nullptr;
    if (what == "AI Notifier/AI Notify") {
        const auto& notice = *static_cast<AINotifierMessage*>(message);
        auto* const document = static_cast<_t_AIDocument*>(notice.notifyData);
        if (notice.notifier == opened && onOpened != nullptr) onOpened(document);
        if (notice.notifier == closed && onClosed != nullptr) onClosed(document);
    }
    return kHostSuccess;
}

}  // namespace plugin

#define PLUGIN_MAIN extern "C" __attribute__((visibility("default"))) AIErr PluginMain
