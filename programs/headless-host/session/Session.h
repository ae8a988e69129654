#pragma once

#include <functional>
#include <string>
#include <vector>

#include "application/RunningHost.h"
#include "session/JournalLines.h"

namespace headless {

enum class LineOutcome {
    kDone,
    kNotAsExpected,  // an expectation that isn't met
    kFileFailed,     // a file that can't be opened or saved; it has been told
    kWrong,          // a line that can't be understood or carried out as things stand
    kQuit,
};

struct LineResult {
    LineOutcome outcome = LineOutcome::kDone;
    std::string text;  // what was expected and, where there is such, what was found
};

// A session with the host: lines with an action each, carried out one after the other.
class Session {
public:
    explicit Session(RunningHost& run);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // An empty line and a comment do nothing.
    LineResult RunLine(const std::string& line);

    // The words a user may go on with: actions, forms of `expect`, names of documents. `line` is
    // what stands before the word, `word` what there is of it.
    std::vector<std::string> Complete(const std::string& line, const std::string& word) const;

    // What the actions work on.
    RunningHost& run;
    JournalLines log;
    OpenReport lastOpened;
    std::string lastPanelAnswers;
    bool hasQuit = false;

    // For actions. The document of the number or name; else null and a line in `error`.
    DocumentObject* FindDocument(const std::string& numberOrName, std::string& error) const;
    std::string MakeAbsolute(const std::string& path) const;
};

}  // namespace headless
