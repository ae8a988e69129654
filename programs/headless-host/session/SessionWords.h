#pragma once

#include <string>
#include <vector>

namespace headless {

// A line of a session as words.
struct SessionWords {
    std::vector<std::string> words;
    std::string error;  // what is wrong with the line, empty if nothing is
};

// Words stand between blanks. Within double quotes blanks count, and a backslash takes the meaning
// from the quote or backslash behind it; within single quotes all counts as it stands. A word that
// begins with # and all behind it is a comment.
SessionWords SplitSessionLine(const std::string& line);

// The word as a line holds it, with quotes if it needs any.
std::string QuoteSessionWord(const std::string& word);

}  // namespace headless
