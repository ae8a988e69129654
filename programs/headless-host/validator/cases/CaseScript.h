#pragma once

#include <string>
#include <vector>

#include "validator/Case.h"

// Helpers for writing cases.
namespace headless {

// Appends a case. The lines of `script` may be indented; empty lines are left out.
void AddCase(std::vector<ValidatorCase>& cases, int rule, const std::string& name,
             const std::string& script);

// Replaces each `%` of `line` by the numbers from 1 to `count`, one line per number.
std::string Repeat(size_t count, const std::string& line);

// Lines that perform an ordinary life: documents that open, change and close, menus and ticks. They
// don't need a plug-in that runs.
std::string GetShortLife();

// Operations of suites. An operation that several suites have is in the list once.
const std::vector<std::string>& ListResultOperations();    // they return something
const std::vector<std::string>& ListReleaseOperations();   // they release something
const std::vector<std::string>& ListTextOperations();      // a text walk may call them
const std::vector<std::string>& ListRegisterOperations();  // a start may call them
const std::vector<std::string>& ListMenuOperations();      // on items
const std::vector<std::string>& ListDocumentOperations();  // on the current document and paths

// Types of the notifiers about documents.
const std::vector<std::string>& ListDocumentNotifiers();

// One message of each kind, as words of the action `send`, with the name of a case.
struct NamedMessage {
    const char* name;
    const char* words;
};
const std::vector<NamedMessage>& ListMessages();

}  // namespace headless
