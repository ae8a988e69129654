#include "documents/write/Compress.h"

#include <zlib.h>
#include <zstd.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace documents {

std::string CompressZlib(std::string_view bytes, int level)
{
    uLongf size = compressBound(bytes.size());
    std::string packed(size, '\0');
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                  reinterpret_cast<const Bytef*>(bytes.data()), bytes.size(), level) != Z_OK) {
        throw std::runtime_error("zlib cannot compress");
    }
    packed.resize(size);
    return packed;
}

std::string CompressZstandard(std::string_view bytes)
{
    std::string packed(ZSTD_compressBound(bytes.size()), '\0');
    const size_t size = ZSTD_compress(packed.data(), packed.size(), bytes.data(), bytes.size(),
                                      ZSTD_CLEVEL_DEFAULT);
    if (ZSTD_isError(size) != 0) throw std::runtime_error("zstd cannot compress");
    packed.resize(size);
    return packed;
}

std::string EncodeAscii85(std::string_view bytes, std::string_view lineEnd)
{
    constexpr size_t kLineLength = 100;
    std::string text;
    for (size_t i = 0; i < bytes.size(); i += 4) {
        const size_t count = std::min<size_t>(4, bytes.size() - i);
        uint32_t value = 0;
        for (size_t j = 0; j < 4; ++j) {
            const auto byte = j < count ? static_cast<unsigned char>(bytes[i + j]) : 0U;
            value = value << 8 | byte;
        }
        std::string group(5, '!');
        for (size_t j = 5; j-- > 0; value /= 85) group[j] = static_cast<char>('!' + value % 85);
        text += count == 4 && group == "!!!!!" ? "z" : group.substr(0, count + 1);
    }
    text += "~>";
    std::string lines;
    for (size_t i = 0; i < text.size(); i += kLineLength) {
        if (i > 0) lines += lineEnd;
        lines += '%';
        lines += text.substr(i, kLineLength);
    }
    return lines;
}

}  // namespace documents
