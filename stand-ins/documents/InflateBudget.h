#pragma once

#include <cstddef>
#include <stdexcept>

namespace documents {

// What a document asks for is beyond the limits; the text is the whole error line.
class TooLarge : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// How many bytes one document may inflate to, over all of its streams. While it lives it is the
// calling thread's: the stream filters take from it what they put out. One at a time per thread.
class InflateBudget {
public:
    explicit InflateBudget(size_t bytes);
    ~InflateBudget();
    InflateBudget(const InflateBudget&) = delete;
    InflateBudget& operator=(const InflateBudget&) = delete;

    // Takes from the calling thread's budget, if there is one; throws TooLarge once it is used up.
    static void Take(size_t bytes);

    // The PDF library drops exceptions of filters in places, so this is to be asked at the end.
    bool IsExceeded() const { return mExceeded; }
    void Check() const;

private:
    size_t mLeft;
    size_t mLimit;
    bool mExceeded = false;
};

}  // namespace documents
