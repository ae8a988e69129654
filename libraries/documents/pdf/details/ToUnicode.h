#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "documents/pdf/ContentLexer.h"

namespace documents {

// Returns the bytes of a string token.
std::string DecodeString(const Token& token);

// The text that the codes of a font stand for, from its ToUnicode map.
class ToUnicode {
public:
    // Without a map, codes of one byte from 0x20 to 0x7E are ASCII, and all others nothing.
    ToUnicode() = default;

    // Reads a decoded map; damaged entries are left out.
    explicit ToUnicode(std::string_view map);

    // Returns the text of a shown string in UTF-8, with spaces in place of control characters.
    //
    // codeBytes   1 or 2
    std::string Decode(std::string_view bytes, size_t codeBytes) const;

private:
    void Add(uint32_t code, const std::string& utf16);
    void AddRange(const std::string& first, const std::string& last, const std::string& text);

    std::map<uint32_t, std::string> mTexts;
    bool mHasMap = false;
    size_t mEntryCount = 0;  // repeats included: ranges may overlap
};

}  // namespace documents
