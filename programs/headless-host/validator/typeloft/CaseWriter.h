#pragma once

#include <string>
#include <vector>

#include "validator/Case.h"

namespace headless {

typedef std::vector<std::string> Lines;

// A status of PluginCore's interface, with a name for cases.
struct CoreStatus {
    const char* name;
    unsigned int value;
};

constexpr unsigned int kCoreInvalidJson = 0x04000000;
constexpr unsigned int kCoreNotFound = 0x07000000;
constexpr unsigned int kCoreBufferTooSmall = 0x0C000000;
constexpr unsigned int kCoreUnsupportedVersion = 0x0E000000;

// The statuses for failures, and two that the interface doesn't define.
extern const std::vector<CoreStatus> kCoreStatuses;

// The exceptions that a script can throw, by the words for them.
extern const std::vector<std::string> kExceptionTypes;

// The names of the 26 functions.
extern const std::vector<std::string> kCoreFunctions;

// How a script makes a running plug-in call a function of PluginCore.
struct CoreCall {
    const char* function;
    Lines before;          // performed once, before the function is made to fail
    const char* act;       // a %s in it becomes the name of a document, a.ai or b.ai
    unsigned calls;        // of the function in one act
    unsigned callsBefore;  // of the function at the start and in `before`
};
extern const std::vector<CoreCall> kCoreCalls;

// A font list of one font that is not active.
extern const std::string kFontList;

// A menu tree with the library menu, a library in it and the item "Command".
extern const std::string kMenuTree;

// The lines that make the documents a.ai and b.ai, each with a font that is not active, and give
// PluginCore the menu tree.
Lines MakeWorld();

void AddCase(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
             const Lines& lines);

// Appends `made` in the order of the rules, and for one rule in the order in which they were made.
void AppendByRule(std::vector<ValidatorCase>& cases, std::vector<ValidatorCase> made);

// A line `core FUNCTION KEY=VALUE`, quoted.
std::string MakeCoreLine(const std::string& function, const std::string& key,
                         const std::string& value);

// A line that makes the function return the status.
std::string MakeStatusLine(const std::string& function, unsigned int status);

std::string ExpectCore(const std::string& function, size_t count);

// The lines of both.
Lines Join(Lines first, const Lines& second);

// `text` with `with` in place of the first %s.
std::string Fill(const std::string& text, const std::string& with);

}  // namespace headless
