#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "HostAnswer.h"
#include "application/MessagePump.h"
#include "application/PluginModule.h"
#include "panel/PanelBus.h"
#include "replay/JournalReader.h"
#include "replay/LineComparison.h"
#include "replay/ReplayFonts.h"

namespace headless {

// Where a replay happens.
struct ReplayPlace {
    std::string files;       // a folder for the documents of the journal; ends with '/'
    std::string frameworks;  // of the event bus; empty for none
};

// The first line in which a run isn't the recorded one.
struct ReplayDifference {
    size_t line = 0;                  // in the journal
    std::string where;                // "op", "args/name" …; empty if one of the lines is missing
    std::string expected;             // what the journal has, as DescribeLine says it
    std::string came;                 // what arose; empty for nothing
    std::vector<std::string> before;  // the recorded lines before it, with their numbers
    std::vector<std::string> cameBefore;  // those that arose in their place
};

// Plays a journal: does again what the host did, sends the recorded messages and answers
// PluginCore's functions with the recorded results, while the host's model answers the calls of
// suites. Each line that arises is compared with the recorded one. After the first difference
// nothing more is compared and no message is sent. Main thread only.
class Replay {
public:
    static constexpr size_t kShownLines = 10;

    // The host's fonts must be `fonts`; all must outlive this object.
    //
    // compares   false for a new journal: differences are passed over, and what the plug-in calls
    //            is answered by the next recorded call of the same message, if there is one
    Replay(Host& host, ReplayFonts& fonts, JournalReader& journal, ReplayPlace place,
           bool compares);
    ~Replay();
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    // Loads the plug-in. Returns false, with one line in `error`, if it cannot be loaded.
    bool Load(const std::string& pluginPath, std::string& error);

    // Plays all lines, as far as they are equal.
    void Play();

    // Answers a call of PluginCore; see SimulatedCore::Answerer.
    void AnswerCore(const std::string& function, const nlohmann::json& arguments,
                    HostAnswer& answer);

    const std::optional<ReplayDifference>& GetDifference() const { return mDifference; }
    size_t GetPlayedLines() const { return mPlayed; }

    // One line about a recorded line that cannot be played; empty if there is none.
    const std::string& GetError() const { return mError; }

private:
    // Acts.cpp
    bool Perform(const RecordedLine& line);
    bool PerformInWorld(const RecordedLine& line);
    bool PerformOnDocument(const RecordedLine& line, DocumentObject& document);
    bool SendMessage(const RecordedLine& line);
    bool SendRaw(const RecordedLine& line);
    bool WriteFile(const nlohmann::json& args);
    void* FindHandle(const nlohmann::json& name) const;
    DocumentObject* FindDocument(const nlohmann::json& name) const;
    std::string GetPath(const nlohmann::json& recorded) const;

    void PerformNext();
    void BeginCall(const std::string& name);
    void Follow(const RecordedLine& arisen);
    void Compare(const RecordedLine& arisen);
    void PassOver(const RecordedLine& arisen);
    void Differ(const RecordedLine& expected, const RecordedLine* arisen, const std::string& where);
    void LoadMessage();
    bool IsPlaying() const { return !mHasStopped; }

    // The next recorded line of the message; with `ahead` one behind it.
    const RecordedLine* PeekInMessage(size_t ahead = 0);
    const RecordedLine* FindAnswer(const std::string& function, size_t start = 0);

    Host& mHost;
    ReplayFonts& mFonts;
    JournalReader& mJournal;
    const ReplayPlace mPlace;
    const bool mCompares;
    LineComparison mComparison;
    std::unique_ptr<PluginModule> mModule;
    std::unique_ptr<MessagePump> mPump;
    std::unique_ptr<PanelBus> mBus;
    std::deque<RecordedLine> mMessage;  // without comparison: the rest of the message's lines
    std::deque<std::pair<std::string, std::string>> mShown;  // the last lines: recorded, arisen
    std::optional<ReplayDifference> mDifference;
    std::string mError;
    std::map<std::string, std::string> mDefaults;  // recorded default fonts, by language
    bool mIsInMessage = false;
    std::string mText;  // of the last answer of PluginCore
    double mStart = 0;
    long mClockOffset = 0;
    size_t mPlayed = 0;
    bool mIsRunning = false;  // the plug-in hasn't refused to start
    bool mHasStopped = false;
};

}  // namespace headless
