#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "application/RunningHost.h"
#include "session/JournalLines.h"

namespace headless {

class PanelBus;

enum class LineOutcome {
    kDone,
    kNotAsExpected,  // an expectation is not met
    kFileFailed,     // a file cannot be opened or saved; already reported
    kImpossible,     // the action is not possible at present
    kWrong,          // the line is invalid
    kQuit,
    kRestart,  // of a simulation: the plug-in starts again with a new host
};

struct LineResult {
    LineOutcome outcome = LineOutcome::kDone;
    std::string text;  // one line about what is wrong; empty if there is nothing to report
};

// Results with the outcomes kWrong and kImpossible.
LineResult MakeWrong(const std::string& text);
LineResult MakeImpossible(const std::string& text);

// What the lines of a script share: the host they work on, and what later lines can ask about. Main
// thread only.
class Session {
public:
    // runningHost   must outlive the session
    // isObserving   whether to observe the host's journal as long as the session exists, for
    //               `expect call`; makes every call of the plug-in several times as slow
    explicit Session(RunningHost& runningHost, bool isObserving = true);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // The open document that a user means by its number from 1, its name or its path. Null, with
    // one line in `error`, if there is none or several.
    DocumentObject* FindDocument(const std::string& numberOrName, std::string& error) const;

    // `path` relative to the folder the program was started in, as an absolute path.
    std::string MakeAbsolute(const std::string& path) const;

    RunningHost& running;
    JournalLines journal;  // since the start of the session
    OpenReport lastOpened;
    std::shared_ptr<PanelBus> portBus;  // of `ask-port`
    // Performs another line, for actions that do so later; set by RunLine.
    LineResult (*runLine)(Session& session, const std::string& line) = nullptr;
    std::vector<std::string> nestedFailures;  // of lines of `during`
    bool isAnswerSkipped = false;             // the last `send` sent nothing
    std::map<std::string, std::vector<size_t>> remembered;
    std::string lastPanelAnswers;  // one JSON object per line
};

}  // namespace headless
