#pragma once

#include <string>

#include "AISuites.h"
#include "ATESuites.h"
#include "ArtTypes.h"
#include "HostMessages.h"
#include "SPBasicSuite.h"

// What the little plug-ins of the tests share. Each module has a copy of its own of everything
// here.
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
    const Suite* operator->() const { return mSuite; }

private:
    const char* mName;
    int mVersion;
    const Suite* mSuite = nullptr;
};

// The first text frame of the current document. The art set that led to it is given back.
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

// Adds the two notifiers and makes the globals word non-null, so that the guest counts as running.
inline void Start(SPMessageData& data)
{
    basic = data.basic;
    self = data.self;
    data.globals = &basic;
    Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
    (void)notifiers->AddNotifier(self, "Opened", "AI Document Opened Notifier", &opened);
    (void)notifiers->AddNotifier(self, "Closed", "AI Document Closed Notifier", &closed);
}

// A guest that does nothing but `onOpened` and `onClosed`, either of which may be null.
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
