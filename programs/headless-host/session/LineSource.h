#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headless {

// Where the lines of a session come from.
class LineSource {
public:
    virtual ~LineSource() = default;

    // The next line without its end; nothing at the end or after an interrupt.
    virtual std::optional<std::string> Next() = 0;
};

// What a source does while nothing comes: `tick`, so many times a second.
struct IdleWork {
    int ticksPerSecond = 0;
    std::function<void()> tick;
};

// The words that may stand behind `line` and begin with `word`.
using Completer =
    std::function<std::vector<std::string>(const std::string& line, const std::string& word)>;

// The lines of a text.
std::unique_ptr<LineSource> ReadLinesOfText(std::string text);

// The lines of standard input, as they come.
std::unique_ptr<LineSource> ReadStandardInput(IdleWork idle);

// A prompt on the terminal, with editing, completion and a history that is kept in `historyFile`
// (none if that is empty).
std::unique_ptr<LineSource> ReadPrompt(IdleWork idle, Completer completer,
                                       const std::string& historyFile);

}  // namespace headless
