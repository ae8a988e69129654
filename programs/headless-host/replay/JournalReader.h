#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

struct gzFile_s;  // of zlib

namespace headless {

// A line of a journal; see Journal.
struct RecordedLine {
    size_t number = 0;  // in the file, from 1
    double seconds = 0;
    std::string side;
    std::string op;
    nlohmann::json args;
    nlohmann::json result;
};

// Reads a journal line by line, which gzip may have compressed; in memory are the lines that are
// looked at ahead. A line whose end is missing, because the program that wrote it was killed, ends
// the journal. Not thread-safe.
class JournalReader {
public:
    static constexpr size_t kLongestLine = size_t{64} << 20;
    static constexpr size_t kDeepestJson = 100;

    // Opens the file and reads its header. Returns false, with one line in `error`, if it cannot be
    // read or isn't a journal of the version that this program writes.
    bool Open(const std::string& path, std::string& error);

    const RecordedLine& GetHeader() const { return mHeader; }

    // The line after those that were taken, or one behind it; null at the end. Valid until Take.
    const RecordedLine* Peek(size_t ahead = 0);

    // Removes the line that Peek() returns, which must exist.
    RecordedLine Take();

    // The number of the line that ends within it; 0 if there is none so far.
    size_t GetCutLine() const { return mCutLine; }

    // One line about why the lines end before the file; empty if they don't.
    const std::string& GetError() const { return mError; }

private:
    struct Close {
        void operator()(gzFile_s* file) const;
    };

    bool ReadPiece();
    bool ReadText(std::string& text);
    bool ReadLine();
    bool Fail(const std::string& what);

    std::string mPath;
    std::unique_ptr<gzFile_s, Close> mFile;
    std::string mBuffer;  // what was read and isn't a line yet
    size_t mAt = 0;       // where the next line begins in mBuffer
    bool mHasEnded = false;
    size_t mNumber = 0;
    size_t mCutLine = 0;
    std::string mError;
    RecordedLine mHeader;
    std::deque<RecordedLine> mLines;
};

}  // namespace headless
