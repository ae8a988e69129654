#include "documents/bytes/Decompress.h"

#include <libdeflate.h>
#include <zlib.h>
#include <zstd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "documents/bytes/ReadBudget.h"

namespace documents {

namespace {

constexpr size_t kBlock = 65536;
// Base-2 logarithm of the largest window: 128 MiB, the default of zstd's own tools.
constexpr int kMaximumWindow = 27;

struct InflateEnd {
    void operator()(z_stream* stream) const
    {
        // Can't fail: the stream was initialized.
        (void)inflateEnd(stream);
    }
};

// InflateAtOnce doesn't look at the time, so it has to end soon: this much takes a tenth of a
// second.
constexpr size_t kMostAtOnce = size_t{64} << 20;

struct FreeInflater {
    void operator()(libdeflate_decompressor* inflater) const
    {
        libdeflate_free_decompressor(inflater);
    }
};

struct FreeZstandard {
    void operator()(ZSTD_DStream* stream) const { (void)ZSTD_freeDStream(stream); }
};

constexpr size_t kGroup = 5;  // digits of a word in ASCII85

// Reads a word from the start of `text`. Returns false if the text doesn't begin with five digits.
bool ReadGroup(std::string_view text, uint32_t& word)
{
    if (text.size() < kGroup) return false;
    bool isGroup = true;
    word = 0;
    for (size_t i = 0; i < kGroup; ++i) {
        const uint32_t digit = static_cast<unsigned char>(text[i]) - uint32_t{'!'};
        isGroup = isGroup && digit < 85;
        word = word * 85 + digit;
    }
    return isGroup;
}

}  // namespace

bool InflateAtOnce(std::string_view packed, ByteBuffer& output)
{
    // Text inflates to four to six times its packed size. Data that needs more room is inflated
    // again from its start, so the room grows fast: pages of it that stay empty take no memory.
    constexpr size_t kFactor = 8;
    const size_t most = std::min(kMostAtOnce, ReadBudget::GetLeft());
    const std::unique_ptr<libdeflate_decompressor, FreeInflater> inflater(
        libdeflate_alloc_decompressor());
    if (inflater == nullptr || packed.empty() || packed.size() > most) return false;
    for (size_t room = packed.size();;) {
        room = room > most / kFactor ? most : std::max(room * kFactor, kBlock);
        char* const place = output.GetRoom(room);
        if (place == nullptr) return false;
        size_t used = 0;
        size_t size = 0;
        const libdeflate_result result = libdeflate_zlib_decompress_ex(
            inflater.get(), packed.data(), packed.size(), place, room, &used, &size);
        if (result == LIBDEFLATE_SUCCESS) {
            ReadBudget::Take(size);
            output.AddRoomTaken(size);
            return true;
        }
        if (result != LIBDEFLATE_INSUFFICIENT_SPACE || room >= most) return false;
    }
}

std::string InflateZlib(std::string_view packed, ByteBuffer& output)
{
    if (InflateAtOnce(packed, output)) return {};
    // It is damaged, cut off or huge. zlib gives what is before the damage, and stops at the
    // limits.
    z_stream stream = {};
    if (inflateInit(&stream) != Z_OK) return "zlib cannot be initialized";
    const std::unique_ptr<z_stream, InflateEnd> end(&stream);
    std::vector<char> block(kBlock);
    int status = Z_OK;
    size_t used = 0;
    while (status == Z_OK) {
        // zlib's sizes have 32 bits.
        const size_t step = std::min<size_t>(packed.size() - used, size_t{1} << 30);
        stream.next_in =
            reinterpret_cast<Bytef*>(const_cast<char*>(packed.data() + used));  // zlib only reads
        stream.avail_in = static_cast<uInt>(step);
        stream.next_out = reinterpret_cast<Bytef*>(block.data());
        stream.avail_out = static_cast<uInt>(block.size());
        status = inflate(&stream, Z_NO_FLUSH);
        used += step - stream.avail_in;
        output.Append({block.data(), block.size() - stream.avail_out});
    }
    if (status == Z_STREAM_END) return {};
    return status == Z_BUF_ERROR ? "its zlib data is cut off" : "its zlib data is damaged";
}

std::string DecompressZstandard(std::string_view packed, ByteBuffer& output)
{
    const std::unique_ptr<ZSTD_DStream, FreeZstandard> stream(ZSTD_createDStream());
    if (stream == nullptr) throw std::bad_alloc();
    (void)ZSTD_DCtx_setParameter(stream.get(), ZSTD_d_windowLogMax, kMaximumWindow);
    std::vector<char> block(kBlock);
    ZSTD_inBuffer input = {packed.data(), packed.size(), 0};
    for (;;) {
        ZSTD_outBuffer out = {block.data(), block.size(), 0};
        const size_t before = input.pos;
        const size_t status = ZSTD_decompressStream(stream.get(), &out, &input);
        output.Append({block.data(), out.pos});
        if (ZSTD_isError(status) != 0) return "its zstd data is damaged";
        if (status == 0) return {};
        if (out.pos == 0 && input.pos == before) return "its zstd data is cut off";
    }
}

bool DecodeAscii85(std::string_view text, ByteBuffer& output)
{
    std::array<char, 4096> block = {};
    size_t used = 0;
    uint32_t value = 0;
    int count = 0;
    bool isLineStart = true;
    const auto flush = [&] {
        output.Append({block.data(), used});
        used = 0;
    };
    const auto put = [&](uint32_t word, int bytes) {
        for (int i = 0; i < bytes; ++i) block[used++] = static_cast<char>(word >> (24 - 8 * i));
        if (used + 4 > block.size()) flush();
    };
    bool good = true;
    for (size_t i = 0; i < text.size(); ++i) {
        // Most of the text: five digits together.
        uint32_t word = 0;
        while (count == 0 && ReadGroup({text.data() + i, text.size() - i}, word) &&
               !(isLineStart && text[i] == '%')) {
            put(word, 4);
            isLineStart = false;
            i += kGroup;
        }
        if (i >= text.size()) break;
        const char c = text[i];
        if (c == '~') break;
        if (c == '\r' || c == '\n') {
            isLineStart = true;
            continue;
        }
        const bool isMark = isLineStart && c == '%';
        isLineStart = false;
        if (isMark || c == ' ' || c == '\t' || c == '\f' || c == '\0') continue;
        if (c == 'z' && count == 0) {
            put(0, 4);
        } else if (c < '!' || c > 'u') {
            good = false;
            break;
        } else {
            value = value * 85 + static_cast<uint32_t>(c - '!');
            if (++count == 5) {
                put(value, 4);
                value = 0;
                count = 0;
            }
        }
    }
    if (count > 1) {
        const int bytes = count - 1;
        for (; count < 5; ++count) value = value * 85 + 84;
        put(value, bytes);
    }
    flush();
    return good;
}

}  // namespace documents
