#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

namespace headless {

// Records the messages and calls between host, plug-in and PluginCore in a file, one JSON object
// per line: `seq` from 1, `t` in seconds since the journal was opened, `side` (host, suite, core,
// alert, modal, world), `op`, `args`, `result`. A call is written when it returns, after the calls
// that were made in it. The side "world" is what changes around the plug-in, which a replay has to
// do again: documents, fonts, files. Each line is written before Write returns, so a crash loses
// none. Not thread-safe.
class Journal {
public:
    // Of what the lines say, in the journal's first line. Before version 2 there was no such line.
    static constexpr int kVersion = 2;

    Journal() = default;
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // Creates or empties the file. Returns false, with one line in `error`, on failure.
    bool Open(const std::string& path, std::string& error);

    // The observer is called for each line, with or without a file. An empty one ends that.
    using Observer = std::function<void(const std::string& op, const nlohmann::json& args,
                                        const nlohmann::json& result)>;
    void SetObserver(Observer observer) { mObserver = std::move(observer); }

    // The same with the line's side, for a replay: what follows the lines as they arise.
    using Follower = std::function<void(const std::string& side, const std::string& op,
                                        const nlohmann::json& args, const nlohmann::json& result)>;
    void SetFollower(Follower follower) { mFollower = std::move(follower); }

    // Empties the file instead of making it larger than this, for those who want the last lines
    // only. A line alone may be larger.
    void LimitFile(size_t bytes) { mMostBytes = bytes; }

    // Leaves out this folder, which ends with '/', wherever a line of the file has it.
    void LeaveOut(const std::string& folder) { mLeftOut = folder; }

    // Whether there is a file or an observer, so that lines are worth making.
    bool IsOpen() const { return mFile >= 0 || mObserver || mFollower; }

    // One line if a write failed, which names the file; else empty.
    const std::string& GetError() const { return mError; }

    // Writes the first line of a journal that can be replayed.
    //
    // args   what the replay needs to know before the plug-in starts; gets `version`
    void WriteHeader(nlohmann::json args);

    // Writes a line. Bytes that aren't UTF-8 are replaced. After a failed write, as on a full disk,
    // nothing more is written to the file.
    void Write(const char* side, const std::string& op, const nlohmann::json& args,
               const nlohmann::json& result);

private:
    void Close();
    void Append(const std::string& text);

    int mFile = -1;
    std::string mPath;
    std::string mError;
    std::string mLeftOut;
    size_t mMostBytes = SIZE_MAX;
    size_t mBytes = 0;  // of the file
    Observer mObserver;
    Follower mFollower;
    unsigned long mSequence = 0;
    std::chrono::steady_clock::time_point mStart;
};

}  // namespace headless
