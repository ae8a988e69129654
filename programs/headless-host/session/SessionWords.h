#pragma once

#include <string>
#include <vector>

// The words of script lines.
namespace headless {

using Words = std::vector<std::string>;

struct SessionWords {
    Words words;
    std::string error;  // what is wrong with the line; empty if nothing is
};

// Splits a line of a script at spaces and tabs. Double quotes keep spaces, and a backslash in them
// escapes a quote or a backslash; single quotes keep everything. A word that begins with # outside
// of quotes starts a comment.
SessionWords SplitSessionLine(const std::string& line);

// The word as a line must contain it, in quotes if it needs them.
std::string QuoteSessionWord(const std::string& word);

// The words with ", " between them.
std::string JoinWords(const Words& words);

// A usage line: "open PATH" of "open" and "PATH".
std::string JoinUsage(const std::string& name, const std::string& arguments);

// Read all of `text` as a number; return false if it is none. Seconds are from 0 to 86400.
bool ReadCount(const std::string& text, unsigned long& number);
bool ReadSeconds(const std::string& text, double& seconds);
bool ReadStatus(const std::string& text, int& status);

// The last component of a path.
std::string GetBareName(const std::string& path);

}  // namespace headless
