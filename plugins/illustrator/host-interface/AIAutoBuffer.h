#pragma once

#include "DropExceptions.h"
#include "SPAlloc.h"

namespace ai {

// Owns a block of GetCount() elements, which the host may exchange for another one. The object
// crosses the boundary by address, so the order of its two fields is fixed and it has no virtual
// operations. Can be moved but not copied. [main-thread]
//
// T  element type, without constructor and destructor
// S  type of the count
// A  allocator with static AllocateBlock and DeleteBlock, such as ai::SPAlloc
template <class T, class S, class A>
class AutoBuffer {
public:
    // Allocates `count` elements, not initialized. A count of 0 allocates nothing. Throws what
    // A::AllocateBlock throws.
    explicit AutoBuffer(S count = 0)
        : mCount(count),
          mBuffer(count == 0 ? nullptr : static_cast<T*>(A::AllocateBlock(ByteCount(count))))
    {
    }

    // Takes the block over; `other` becomes empty.
    AutoBuffer(AutoBuffer&& other) noexcept : mCount(other.mCount), mBuffer(other.mBuffer)
    {
        other.mCount = 0;
        other.mBuffer = nullptr;
    }

    // Exchanges the blocks, so `other` frees the old one.
    AutoBuffer& operator=(AutoBuffer&& other) noexcept
    {
        const S count = mCount;
        T* const buffer = mBuffer;
        mCount = other.mCount;
        mBuffer = other.mBuffer;
        other.mCount = count;
        other.mBuffer = buffer;
        return *this;
    }
    AutoBuffer(const AutoBuffer&) = delete;
    AutoBuffer& operator=(const AutoBuffer&) = delete;
    ~AutoBuffer()
    {
        if (mBuffer != nullptr) DropExceptions([this] { A::DeleteBlock(mBuffer); });
    }

    // Returns the block, which the buffer still owns; null if the count is 0.
    T* GetBuffer() const { return mBuffer; }

    // Returns the number of elements.
    S GetCount() const { return mCount; }

    // Returns the size of `count` elements in bytes.
    static S ByteCount(S count) { return count * sizeof(T); }

private:
    S mCount;
    T* mBuffer;
};

}  // namespace ai
