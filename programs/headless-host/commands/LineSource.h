#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace headless {

// Where the lines of a script come from. Main thread only.
class LineSource {
public:
    virtual ~LineSource() = default;

    // Waits for the next line and returns it without its end. Nothing at the end of the lines and
    // after an interrupt.
    virtual std::optional<std::string> Next() = 0;
};

// What a source does while it waits: calls `tick` so many times a second.
struct IdleWork {
    int ticksPerSecond = 0;
    std::function<void()> tick;
};

// Reads the lines of a text.
std::unique_ptr<LineSource> ReadLinesOfText(std::string text);

// Reads lines from standard input.
std::unique_ptr<LineSource> ReadStandardInput(IdleWork idle);

}  // namespace headless
