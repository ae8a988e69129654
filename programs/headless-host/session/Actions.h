#pragma once

#include <string>
#include <vector>

#include "session/Session.h"

namespace headless {

using Words = std::vector<std::string>;

// What a word of an action may be completed with.
enum class Completion { kNothing, kPath, kDocument, kMenuItem, kForm, kFont };

// One row per action of a session: parser, help and manual are made from this table, and likewise
// from the one of what can be expected.
struct ActionRow {
    const char* name;
    const char* arguments;  // as the help shows them; empty for none
    size_t minimum;         // of words behind the name
    size_t maximum;
    Completion completion;
    const char* help;
    bool needsDocument;  // there must be a current one
    LineResult (*run)(Session& session, const Words& arguments);
};

struct ExpectRow {
    const char* words;      // the fixed words at the beginning
    const char* arguments;  // as the help shows them
    size_t minimum;
    size_t maximum;
    const char* help;
    LineResult (*run)(Session& session, const Words& arguments);
};

extern const std::vector<ActionRow> kActions;
extern const std::vector<ExpectRow> kExpectations;

// "open PATH"
std::string GetUsage(const ActionRow& row);
// "expect font NAME STATE"
std::string GetUsage(const ExpectRow& row);

// All usages with their help, in lines of two columns.
std::string DescribeActions();

LineResult MakeWrong(const std::string& text);

// `text` as a number of `Number`'s range, all of it; false for anything else.
bool ReadCount(const std::string& text, unsigned long& number);
bool ReadSeconds(const std::string& text, double& seconds);

// The `expect` action.
LineResult RunExpect(Session& session, const Words& words);

}  // namespace headless
