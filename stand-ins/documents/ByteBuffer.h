#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace documents {

// Bytes that are put together in pieces. It grows in place where the system can do that, so that
// what one file inflates to isn't held twice. Takes what it grows by from the ReadBudget.
class ByteBuffer {
public:
    // Throws LimitExceeded or std::bad_alloc; the buffer then stays as it was.
    void Append(std::string_view bytes);

    std::string_view GetView() const { return {mBytes.get(), mSize}; }
    size_t GetSize() const { return mSize; }
    bool IsEmpty() const { return mSize == 0; }

private:
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    std::unique_ptr<char, Free> mBytes;
    size_t mSize = 0;
    size_t mCapacity = 0;
};

}  // namespace documents
