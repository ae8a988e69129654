#pragma once

#include "SPAlloc.h"

namespace ai {

// A block of `count` elements that crosses the boundary: the host may fill in both fields, so their
// order is fixed. The buffer owns the block and frees it through A. Movable, not copyable.
template <class T, class S, class A>
class AutoBuffer {
public:
    // 0 makes no allocation. Throws what A::AllocateBlock throws.
    explicit AutoBuffer(S count = 0)
        : mCount(count),
          mBuffer(count == 0 ? nullptr : static_cast<T*>(A::AllocateBlock(ByteCount(count))))
    {
    }
    AutoBuffer(AutoBuffer&& other) noexcept : mCount(other.mCount), mBuffer(other.mBuffer)
    {
        other.mCount = 0;
        other.mBuffer = nullptr;
    }
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
        if (mBuffer != nullptr) A::DeleteBlock(mBuffer);
    }

    T* GetBuffer() const { return mBuffer; }
    S GetCount() const { return mCount; }
    static S ByteCount(S count) { return count * sizeof(T); }

private:
    S mCount;
    T* mBuffer;
};

}  // namespace ai
