#include "session/SessionWords.h"

#include <charconv>
#include <string_view>

namespace headless {

namespace {

constexpr std::string_view kSpaces = " \t\r";

bool IsSpace(char c) { return kSpaces.find(c) != std::string_view::npos; }

// Reads the word that begins at `at` and moves `at` to its end. Returns false if a quote is not
// closed.
bool TakeWord(const std::string& line, size_t& at, std::string& word)
{
    char quote = '\0';
    for (; at < line.size() && (quote != '\0' || !IsSpace(line[at])); ++at) {
        const char c = line[at];
        const char next = at + 1 < line.size() ? line[at + 1] : '\0';
        if (c == quote && quote != '\0') {
            quote = '\0';
        } else if (quote == '\0' && (c == '"' || c == '\'')) {
            quote = c;
        } else if (quote == '"' && c == '\\' && (next == '"' || next == '\\')) {
            word += next;
            ++at;
        } else {
            word += c;
        }
    }
    return quote == '\0';
}

}  // namespace

SessionWords SplitSessionLine(const std::string& line)
{
    SessionWords result;
    if (line.find('\0') != std::string::npos) {
        result.error = "the line contains a zero byte";
        return result;
    }
    for (size_t at = 0;;) {
        while (at < line.size() && IsSpace(line[at])) ++at;
        if (at >= line.size() || line[at] == '#') return result;
        std::string word;
        if (!TakeWord(line, at, word)) {
            result.error = "a quote is not closed";
            return result;
        }
        result.words.push_back(std::move(word));
    }
}

std::string QuoteSessionWord(const std::string& word)
{
    const bool isPlain =
        !word.empty() && word.front() != '#' && word.find_first_of(" \t\r\"'") == std::string::npos;
    if (isPlain) return word;
    std::string quoted = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

std::string JoinWords(const Words& words)
{
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::string JoinUsage(const std::string& name, const std::string& arguments)
{
    return arguments.empty() ? name : name + " " + arguments;
}

bool ReadCount(const std::string& text, unsigned long& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool ReadSeconds(const std::string& text, double& seconds)
{
    constexpr double kLongest = 86400;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), seconds);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() && seconds >= 0 &&
           seconds <= kLongest;
}

bool ReadStatus(const std::string& text, int& status)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), status);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

std::string GetBareName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace headless
