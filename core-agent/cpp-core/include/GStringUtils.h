#pragma once

#include <cstdarg>
#include <string>
#include <vector>

// Operations on strings, byte by byte: multi-byte characters are not recognised, but UTF-8 passes
// through unharmed. Stateless. [any thread]
class GStringUtils {
public:
    // Formats like vsnprintf.
    //
    // buffer   out: at most size - 1 bytes and a zero byte. Owned by the caller; null if size is 0.
    // size     capacity of the buffer in bytes, including the zero byte
    // Returns the length of the whole text without the zero byte, which may exceed the buffer, or a
    // negative number if the format fails.
    static int OSvsnprintf(char* buffer, unsigned long size, const char* format, va_list args);

    // Returns the text with each byte lower-cased by tolower: A to Z in the "C" locale.
    static std::string OSToLowerCase(const std::string& text);

    // Returns the parts of the text between the occurrences of the whole string `delimiter`. A text
    // that ends with the delimiter has an empty last part. If the text or the delimiter is empty,
    // the only part is the text.
    static std::vector<std::string> Split(const std::string& text, const std::string& delimiter);

    // Return the text without all repetitions of the prefix at its start, or of the suffix at its
    // end. An empty prefix or suffix changes nothing.
    static std::string StripPrecedingString(const std::string& text, const std::string& prefix);
    static std::string StripTrailingString(const std::string& text, const std::string& suffix);

    // Case-sensitive. Return true for an empty prefix or suffix.
    static bool BeginsWith(const std::string& text, const std::string& prefix);
    static bool EndsWith(const std::string& text, const std::string& suffix);
};

// Lower-cases the byte in place, for std::for_each.
struct GLowerCaseFunctor {
    void operator()(char& c) const;
};
