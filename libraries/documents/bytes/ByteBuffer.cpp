#include "documents/bytes/ByteBuffer.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "documents/bytes/ReadBudget.h"

namespace documents {

namespace {

constexpr size_t kFirstCapacity = 65536;

}  // namespace

void ByteBuffer::Append(std::string_view bytes)
{
    if (bytes.empty()) return;
    ReadBudget::Take(bytes.size());
    AppendTaken(bytes);
}

void ByteBuffer::AppendTaken(std::string_view bytes)
{
    if (bytes.empty()) return;
    if (bytes.size() > mCapacity - mSize) {
        const size_t wanted =
            std::max({kFirstCapacity, mCapacity + mCapacity / 4, mSize + bytes.size()});
        // realloc has freed or reused the old block: release it without freeing it again.
        auto* const grown = static_cast<char*>(std::realloc(mBytes.get(), wanted));
        if (grown == nullptr) {
            ReadBudget::NoteNoMemory();
            throw std::bad_alloc();
        }
        (void)mBytes.release();
        mBytes.reset(grown);
        mCapacity = wanted;
    }
    std::memcpy(mBytes.get() + mSize, bytes.data(), bytes.size());
    mSize += bytes.size();
}

}  // namespace documents
