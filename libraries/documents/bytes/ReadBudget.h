#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace documents {

// Reading a document would exceed a limit of size or time. what() is the complete error line.
class LimitExceeded : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Limits the total output of decompression and the time for reading one document.
//
// While it lives, it is the budget of the thread that created it, and every stream filter takes its
// output from it. At most one per thread at a time. It also records if operator new finds no memory
// on that thread: the PDF library swallows std::bad_alloc as a damage of the file. For that, the
// process has a new-handler as long as any budget lives.
class ReadBudget {
public:
    ReadBudget(size_t bytes, double seconds);
    ~ReadBudget();
    ReadBudget(const ReadBudget&) = delete;
    ReadBudget& operator=(const ReadBudget&) = delete;

    // Takes `bytes` from the calling thread's budget, if it has one. Throws LimitExceeded if less
    // is left or the time is over.
    static void Take(size_t bytes);

    // Returns how many bytes are left of the calling thread's budget: SIZE_MAX if it has none.
    static size_t GetLeft();

    // Gives back all bytes that were taken, for a second attempt. The time isn't given back.
    void RestoreBytes()
    {
        mLeft = mLimit;
        mExceeded = false;
    }

    // Throws LimitExceeded with this error, now and from every later Take and Check of the calling
    // thread's budget.
    [[noreturn]] static void Refuse(const std::string& error);

    // Records that the calling thread found no memory, for allocations other than operator new.
    static void NoteNoMemory();

    // Throws LimitExceeded if a limit was exceeded, std::bad_alloc if there was no memory. Call it
    // at the end of reading: the PDF library swallows some exceptions of filters.
    void Check() const;
    bool IsExceeded() const { return mExceeded || mIsLate || !mRefusal.empty() || mHasNoMemory; }

private:
    size_t mLeft;
    size_t mLimit;
    double mSeconds;
    std::chrono::steady_clock::time_point mEnd;
    bool mExceeded = false;
    bool mIsLate = false;
    bool mHasNoMemory = false;
    std::string mRefusal;
};

}  // namespace documents
