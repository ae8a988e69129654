#include "GStringUtils.h"

#include <cctype>

std::vector<std::string> GStringUtils::Split(const std::string& text, const std::string& delimiter)
{
    if (delimiter.empty() || text.empty()) return {text};

    std::vector<std::string> parts;
    size_t start = 0;
    size_t found = 0;
    while (start < text.size()) {
        found = text.find(delimiter, start);
        if (found == std::string::npos) found = text.size();
        parts.push_back(text.substr(start, found - start));
        start = found + delimiter.size();
    }
    // Not text.size() - delimiter.size(), which wraps if the delimiter is longer than the text.
    if (found + delimiter.size() == text.size()) parts.emplace_back();
    return parts;
}

std::string GStringUtils::StripPrecedingString(const std::string& text, const std::string& prefix)
{
    if (prefix.empty()) return text;
    size_t start = 0;
    while (text.compare(start, prefix.size(), prefix) == 0) start += prefix.size();
    return text.substr(start);
}

std::string GStringUtils::StripTrailingString(const std::string& text, const std::string& suffix)
{
    if (suffix.empty()) return text;
    size_t size = text.size();
    while (size >= suffix.size() &&
           text.compare(size - suffix.size(), suffix.size(), suffix) == 0) {
        size -= suffix.size();
    }
    return text.substr(0, size);
}

bool GStringUtils::BeginsWith(const std::string& text, const std::string& prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

bool GStringUtils::EndsWith(const std::string& text, const std::string& suffix)
{
    if (suffix.size() > text.size()) return false;
    return text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

void GLowerCaseFunctor::operator()(char& c) const
{
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}
