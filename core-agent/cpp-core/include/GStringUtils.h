#pragma once

#include <cstdarg>
#include <string>
#include <vector>

// Operations on byte strings; characters beyond single bytes are never looked at. No state; any
// thread.
class GStringUtils {
public:
    // vsnprintf, and nothing else.
    static int OSvsnprintf(char* buffer, unsigned long size, const char* format, va_list args);

    static std::string OSToLowerCase(const std::string& text);

    // The delimiter is a whole string. An empty text or delimiter gives one element, the text; a
    // text that ends in the delimiter gives a last, empty element.
    static std::vector<std::string> Split(const std::string& text, const std::string& delimiter);

    // Without every repetition of the prefix, or suffix, that it begins, or ends, with.
    static std::string StripPrecedingString(const std::string& text, const std::string& prefix);
    static std::string StripTrailingString(const std::string& text, const std::string& suffix);

    // An empty prefix or suffix gives true.
    static bool BeginsWith(const std::string& text, const std::string& prefix);
    static bool EndsWith(const std::string& text, const std::string& suffix);
};

struct GLowerCaseFunctor {
    void operator()(char& c) const;
};
