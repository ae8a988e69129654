#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace headless {

// The rules of the host that the guest broke, a line each in the order they were found.
class RuleViolations {
public:
    using Sink = std::function<void(const std::string& line)>;

    // Told of every error as it is found, so that a crash right after it hides nothing.
    void SetSink(Sink sink) { mSink = std::move(sink); }

    // Beyond kKept lines errors are counted, and neither kept nor told.
    void Add(const std::string& line);

    const std::vector<std::string>& Lines() const { return mLines; }
    size_t Count() const { return mCount; }

    static constexpr size_t kKept = 200;

private:
    Sink mSink;
    std::vector<std::string> mLines;
    size_t mCount = 0;
};

}  // namespace headless
