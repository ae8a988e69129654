#include "documents/pdf/filters/LzwDecoder.h"

#include <stdexcept>

namespace documents {

namespace {

constexpr unsigned kClear = 256;
constexpr unsigned kEnd = 257;
constexpr size_t kMaximumEntries = 4096;
constexpr size_t kFlushBytes = 65536;

}  // namespace

LzwDecoder::LzwDecoder(Pipeline* output, bool earlyChange)
    : Pipeline("LZW", output), mEarlyChange(earlyChange)
{
    mEntries.reserve(kMaximumEntries);
    for (unsigned value = 0; value < kEnd + 1; ++value) {
        const auto byte = static_cast<unsigned char>(value);
        mEntries.push_back({0, 1, byte, byte});
    }
}

void LzwDecoder::write(unsigned char const* data, size_t length)
{
    for (size_t index = 0; index < length && !mEnded; ++index) {
        mBits = mBits << 8 | data[index];
        mBitCount += 8;
        if (mBitCount < mCodeBits) continue;
        mBitCount -= mCodeBits;
        const unsigned code = mBits >> mBitCount;
        mBits &= (1u << mBitCount) - 1;
        Take(code);
    }
}

void LzwDecoder::finish()
{
    Flush();
    getNext()->finish();
}

void LzwDecoder::Clear()
{
    mEntries.resize(kEnd + 1);
    mCodeBits = 9;
    mPrevious = -1;
}

void LzwDecoder::Take(unsigned code)
{
    if (code == kClear) {
        Clear();
        return;
    }
    if (code == kEnd) {
        mEnded = true;
        return;
    }
    if (mPrevious >= 0 && mEntries.size() < kMaximumEntries) {
        const Entry& previous = mEntries[static_cast<size_t>(mPrevious)];
        if (code > mEntries.size()) {
            Flush();
            throw std::runtime_error("LZW code out of range");
        }
        // The code may be that of the new entry itself, whose string ends with its first byte.
        const unsigned char last = code < mEntries.size() ? mEntries[code].first : previous.first;
        mEntries.push_back({static_cast<uint16_t>(mPrevious),
                            static_cast<uint16_t>(previous.length + 1), last, previous.first});
    }
    if (code >= mEntries.size()) {
        Flush();
        throw std::runtime_error("LZW code out of range");
    }
    Put(code);
    mPrevious = static_cast<int>(code);
    const size_t bound = mEntries.size() + (mEarlyChange ? 1 : 0);
    mCodeBits = bound >= 2048 ? 12 : bound >= 1024 ? 11 : bound >= 512 ? 10 : 9;
}

void LzwDecoder::Put(unsigned code)
{
    const size_t length = mEntries[code].length;
    mOutput.resize(mOutput.size() + length);
    // The table links each string to its prefix, so fill in from the end.
    size_t position = mOutput.size();
    for (size_t index = 0; index < length; ++index) {
        mOutput[--position] = static_cast<char>(mEntries[code].last);
        code = mEntries[code].prefix;
    }
    if (mOutput.size() >= kFlushBytes) Flush();
}

void LzwDecoder::Flush()
{
    if (mOutput.empty()) return;
    getNext()->write(reinterpret_cast<const unsigned char*>(mOutput.data()), mOutput.size());
    mOutput.clear();
}

}  // namespace documents
