#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

namespace headless {

// What happened, one JSON object a line: `seq` from 1, `t` in seconds since the journal was opened,
// `side` (host, suite, core, alert, modal), `op`, `args`, `result`. A line is with the system
// before Write returns, so a crash keeps all lines up to it.
class Journal {
public:
    Journal() = default;
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // Empties or makes the file. False, and the reason in `error`, if that can't be done.
    bool Open(const std::string& path, std::string& error);

    // Told of each line as well, with or without a file.
    using Observer = std::function<void(const std::string& op, const nlohmann::json& args,
                                        const nlohmann::json& result)>;
    void SetObserver(Observer observer) { mObserver = std::move(observer); }

    // Whether anybody wants the lines.
    bool IsOpen() const { return mFile >= 0 || mObserver; }

    // Does nothing while nobody wants the lines. Text that isn't UTF-8 is written with the broken
    // bytes replaced. After a failed write (disk full) nothing more is written.
    void Write(const char* side, const std::string& op, const nlohmann::json& args,
               const nlohmann::json& result);

private:
    void Close();

    int mFile = -1;
    Observer mObserver;
    unsigned long mSequence = 0;
    std::chrono::steady_clock::time_point mStart;
};

}  // namespace headless
