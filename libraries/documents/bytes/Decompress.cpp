#include "documents/bytes/Decompress.h"

#include <zlib.h>
#include <zstd.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

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

struct FreeZstandard {
    void operator()(ZSTD_DStream* stream) const { (void)ZSTD_freeDStream(stream); }
};

}  // namespace

std::string InflateZlib(std::string_view packed, ByteBuffer& output)
{
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
    for (const char c : text) {
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
