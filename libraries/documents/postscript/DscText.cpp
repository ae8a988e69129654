#include "documents/postscript/DscText.h"

#include <algorithm>

#include "base/Strings.h"
#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"

namespace documents {

namespace {

constexpr std::string_view kSpaces = " \t";

// `text` follows a backslash. Appends the decoded character and returns the length of the escape.
size_t TakeEscape(std::string_view text, std::string& out)
{
    size_t digits = 0;
    unsigned value = 0;
    while (digits < 3 && digits < text.size() && text[digits] >= '0' && text[digits] <= '7') {
        value = value * 8 + static_cast<unsigned>(text[digits] - '0');
        ++digits;
    }
    if (digits > 0) {
        out += static_cast<char>(value & 0xFF);
        return digits;
    }
    if (text.empty()) return 0;
    constexpr std::string_view kLetters = "nrtbf";
    constexpr std::string_view kMeanings = "\n\r\t\b\f";
    const size_t letter = kLetters.find(text[0]);
    out += letter == std::string_view::npos ? text[0] : kMeanings[letter];
    return 1;
}

// Removes a string from `rest`, which begins with "(", and returns at most `most` bytes of it. A
// string without ")" ends with the line.
DscWord TakeString(std::string_view& rest, size_t most)
{
    DscWord word;
    word.quoted = true;
    std::string& text = word.text;
    size_t depth = 1;
    size_t position = 1;
    const auto keep = [&](std::string_view plain) {
        if (plain.empty()) return;
        word.length += plain.size();
        word.last = plain.back();
        text += plain.substr(0, most - text.size());
    };
    size_t plain = position;  // the start of what needs no decoding
    for (; position < rest.size(); ++position) {
        const char c = rest[position];
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) break;
        if (c != '\\') continue;
        keep(rest.substr(plain, position - plain));
        std::string escaped;
        position += TakeEscape(rest.substr(position + 1), escaped);
        keep(escaped);
        plain = position + 1;
    }
    keep(rest.substr(std::min(plain, rest.size()), position - plain));
    rest.remove_prefix(std::min(position + 1, rest.size()));
    return word;
}

}  // namespace

DscComment SplitDscComment(std::string_view line)
{
    line.remove_prefix(2);
    if (line.substr(0, 1) == "+") return {line.substr(0, 1), base::Trim(line.substr(1), kSpaces)};
    const size_t end = std::min(line.find_first_of(": \t"), line.size());
    const bool hasColon = end < line.size() && line[end] == ':';
    return {line.substr(0, end), base::Trim(line.substr(hasColon ? end + 1 : end), kSpaces)};
}

bool TakeDscWord(std::string_view& rest, DscWord& word, size_t most)
{
    rest.remove_prefix(std::min(rest.find_first_not_of(kSpaces), rest.size()));
    if (rest.empty()) return false;
    if (rest.front() == '(') {
        word = TakeString(rest, most);
        return true;
    }
    word = {};
    const size_t length = std::min(rest.find_first_of(kSpaces), rest.size());
    word.text = rest.substr(0, std::min(length, most));
    rest.remove_prefix(length);
    return true;
}

std::string GetDscText(std::string_view value)
{
    value = base::Trim(value, kSpaces);
    if (!value.empty() && value.front() == '(') {
        std::string_view rest = value;
        std::string text = TakeString(rest, kMostDscBytes + 1).text;
        // The value is a string only if nothing follows: "(C) 1999 A. Writer" isn't one.
        if (base::Trim(rest, kSpaces).empty()) return text;
    }
    return std::string(value.substr(0, kMostDscBytes + 1));
}

std::string GetDscPath(std::string_view value)
{
    const std::string text = GetDscText(value);
    return text.size() > kMostDscBytes ? std::string() : base::ToValidUtf8(text);
}

void DscNameLimit::Take(size_t bytes)
{
    constexpr size_t kMostBytes = size_t{32} << 20;
    constexpr size_t kBytesPerName = 64;
    mBytes += bytes + kBytesPerName;
    if (mBytes > kMostBytes) {
        throw LimitExceeded("too large: its comments name more than can be read");
    }
}

std::string QuoteAsString(const std::string& text)
{
    std::string quoted = "(";
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\') quoted += '\\';
        if (c == '\n') quoted += "\\n";
        if (c == '\r') quoted += "\\r";
        if (c != '\n' && c != '\r') quoted += c;
    }
    return quoted + ")";
}

bool IsAtEnd(std::string_view value) { return value == "(atend)" || value == "atend"; }

}  // namespace documents
