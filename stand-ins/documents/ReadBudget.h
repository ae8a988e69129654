#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>

namespace documents {

// What a document asks for is beyond the limits; the text is the whole error line.
class LimitExceeded : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// How many bytes one document may inflate to, over all of its streams, and how long its reading may
// take. While it lives it is the calling thread's: the stream filters take from it what they put
// out. One at a time per thread.
class ReadBudget {
public:
    ReadBudget(size_t bytes, double seconds);
    ~ReadBudget();
    ReadBudget(const ReadBudget&) = delete;
    ReadBudget& operator=(const ReadBudget&) = delete;

    // Takes from the calling thread's budget, if there is one; throws LimitExceeded once it is used
    // up or the time is over.
    static void Take(size_t bytes);

    // The PDF library drops exceptions of filters in places, so this is to be asked at the end.
    bool IsExceeded() const { return mExceeded || mIsLate; }
    void Check() const;

private:
    size_t mLeft;
    size_t mLimit;
    double mSeconds;
    std::chrono::steady_clock::time_point mEnd;
    bool mExceeded = false;
    bool mIsLate = false;
};

}  // namespace documents
