#pragma once

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
};

// Removes the next word from `rest`: a PostScript string such as "(My \(bold\) Font)", which is
// decoded, or the text up to the next space. Returns false if no word is left.
bool TakeDscWord(std::string_view& rest, DscWord& word);

// Returns the whole value as one text, decoded if it is a PostScript string.
std::string GetDscText(std::string_view value);

// Returns the text as a PostScript string on one line, for example "(My \(bold\) Font)".
std::string QuoteAsString(const std::string& text);

// Whether the value is in the trailer: "(atend)", or "atend" as some programs write it.
bool IsAtEnd(std::string_view value);

}  // namespace documents
