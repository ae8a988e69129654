#include "session/SessionWords.h"

#include <string_view>

namespace headless {

namespace {

constexpr std::string_view kBlanks = " \t\r";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

// Takes the word that begins at `at`; false if a quote isn't closed.
bool TakeWord(const std::string& line, size_t& at, std::string& word)
{
    char quote = '\0';
    for (; at < line.size() && (quote != '\0' || !IsBlank(line[at])); ++at) {
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
        result.error = "a zero byte stands in it; expected is text";
        return result;
    }
    for (size_t at = 0;;) {
        while (at < line.size() && IsBlank(line[at])) ++at;
        if (at >= line.size() || line[at] == '#') return result;
        std::string word;
        if (!TakeWord(line, at, word)) {
            result.error = "a quote isn't closed; expected is another one";
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

}  // namespace headless
