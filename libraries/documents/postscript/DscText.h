#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

// A comment of the document structuring conventions, "%%Keyword: value".
struct DscComment {
    std::string_view keyword;  // without the percent signs and the colon; "+" for a continuation
    std::string_view value;    // without spaces around it
};

// Splits a comment line. `line` begins with "%%"; the colon and the space after it are optional.
DscComment SplitDscComment(std::string_view line);

struct DscWord {
    std::string text;
    bool quoted = false;  // was a PostScript string in parentheses
    // Of a quoted word as a whole, also if `text` is only its start.
    size_t length = 0;  // in bytes
    char last = '\0';   // its last byte
};

// The longest text of a comment that is used, the system's limit for a path. A line may be as long
// as the file; without a limit its copies would fill the memory.
constexpr size_t kMostDscBytes = 4096;

// Removes the next word from `rest`: a PostScript string such as "(My \(bold\) Font)", which is
// decoded, or the text up to the next space. `word` gets at most `most` bytes of it. Returns false
// if no word is left.
bool TakeDscWord(std::string_view& rest, DscWord& word, size_t most = std::string_view::npos);

// Returns the whole value as one text, decoded if it is a PostScript string; at most
// kMostDscBytes + 1 bytes of it.
std::string GetDscText(std::string_view value);

// The same for a path: valid UTF-8, and empty if it is longer than kMostDscBytes.
std::string GetDscPath(std::string_view value);

// Limits the memory for all that the comments of one document name, of which several copies are
// made until the document is complete.
class DscNameLimit {
public:
    // Counts a name. Throws LimitExceeded if all are too much.
    void Take(size_t bytes);

private:
    size_t mBytes = 0;
};

// Returns the text as a PostScript string on one line, for example "(My \(bold\) Font)".
std::string QuoteAsString(const std::string& text);

// Whether the value is in the trailer: "(atend)", or "atend" as some programs write it.
bool IsAtEnd(std::string_view value);

}  // namespace documents
