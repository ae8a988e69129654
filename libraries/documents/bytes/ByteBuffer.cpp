#include "documents/bytes/ByteBuffer.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "documents/bytes/ReadBudget.h"

namespace documents {

namespace {

constexpr size_t kFirstCapacity = 65536;

}  // namespace

bool ByteBuffer::Grow(size_t capacity)
{
    // realloc has freed or reused the old block: release it without freeing it again.
    auto* const grown = static_cast<char*>(std::realloc(mBytes.get(), capacity));
    if (grown == nullptr) return false;
    (void)mBytes.release();
    mBytes.reset(grown);
    mCapacity = capacity;
    return true;
}

char* ByteBuffer::GetRoom(size_t size)
{
    if (size > mCapacity - mSize && !Grow(mSize + size)) return nullptr;
    return mBytes.get() + mSize;
}

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
        if (!Grow(wanted)) {
            ReadBudget::NoteNoMemory();
            throw std::bad_alloc();
        }
    }
    std::memcpy(mBytes.get() + mSize, bytes.data(), bytes.size());
    mSize += bytes.size();
}

}  // namespace documents
