#pragma once

#include <string>
#include <string_view>

namespace documents {

// A comment of the document structuring conventions, "%%Keyword: value".
struct DscComment {
    std::string_view keyword;  // without the percent signs and the colon; "+" for a continuation
    std::string_view value;    // without blanks around it
};

// `line` begins with "%%". The colon and the blank behind it may be missing.
DscComment SplitDscComment(std::string_view line);

struct DscWord {
    std::string text;
    bool quoted = false;  // it was a PostScript string
};

// Takes the next word off `rest`: a PostScript string, "(My \(bold\) Font)", or what stands up to
// the next blank. False if there is none.
bool TakeDscWord(std::string_view& rest, DscWord& word);

// The whole value as one text: a PostScript string if it is one, else as it stands.
std::string GetDscText(std::string_view value);

// The text as a PostScript string on one line, "(My \(bold\) Font)".
std::string QuoteAsString(const std::string& text);

// "(atend)", or "atend" as some programs write it: the value stands in the trailer.
bool IsAtEnd(std::string_view value);

}  // namespace documents
