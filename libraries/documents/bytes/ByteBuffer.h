#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace documents {

// A growing sequence of bytes. Grows in place (realloc) where the system can, so that the inflated
// data of a file isn't in memory twice. Takes the bytes from the ReadBudget.
class ByteBuffer {
public:
    // Throws LimitExceeded or std::bad_alloc and then leaves the buffer unchanged.
    void Append(std::string_view bytes);

    // Does the same for bytes that were taken from the ReadBudget before.
    void AppendTaken(std::string_view bytes);

    // Returns room for at least `size` bytes behind the contents, to write into, or null without
    // memory for it. Keep it for what is known to fit: room that isn't written to takes no memory,
    // but the process may be limited. The room is valid until the buffer changes.
    char* GetRoom(size_t size);

    // Adds the first `size` bytes of the room to the contents, which were taken from the
    // ReadBudget.
    void AddRoomTaken(size_t size) { mSize += size; }

    // Drops what is behind the first `size` bytes.
    void Truncate(size_t size) { mSize = size < mSize ? size : mSize; }

    std::string_view GetView() const { return {mBytes.get(), mSize}; }
    size_t GetSize() const { return mSize; }
    bool IsEmpty() const { return mSize == 0; }

private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    // Returns false, and leaves the buffer unchanged, without memory.
    bool Grow(size_t capacity);

    std::unique_ptr<char, Free> mBytes;
    size_t mSize = 0;
    size_t mCapacity = 0;
};

}  // namespace documents
