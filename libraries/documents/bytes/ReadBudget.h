#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>

namespace documents {

// Reading a document would exceed a limit of size or time. what() is the complete error line.
class LimitExceeded : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Limits the total output of decompression and the time for reading one document.
//
// From construction to destruction, the object is the budget of the thread that created it: every
// stream filter that runs there takes the size of its output from it. A thread may have at most one
// at a time.
class ReadBudget {
public:
    ReadBudget(size_t bytes, double seconds);
    ~ReadBudget();
    ReadBudget(const ReadBudget&) = delete;
    ReadBudget& operator=(const ReadBudget&) = delete;

    // Takes `bytes` from the calling thread's budget, if it has one. Throws LimitExceeded if less
    // is left or the time is over.
    static void Take(size_t bytes);

    // Throws LimitExceeded if a limit was exceeded. Call it at the end of reading: the PDF library
    // swallows some exceptions of filters.
    void Check() const;
    bool IsExceeded() const { return mExceeded || mIsLate; }

private:
    size_t mLeft;
    size_t mLimit;
    double mSeconds;
    std::chrono::steady_clock::time_point mEnd;
    bool mExceeded = false;
    bool mIsLate = false;
};

}  // namespace documents
