#pragma once

#include <string>
#include <vector>

#include "session/Session.h"
#include "session/SessionWords.h"

namespace headless {

// One form of the `expect` action. The check reads the state of the host, of its journal or of the
// file system, and changes nothing.
struct ExpectRow {
    const char* words;      // the fixed words after "expect"
    const char* arguments;  // as the help shows them
    size_t minimum;         // number of arguments
    size_t maximum;
    const char* help;
    LineResult (*run)(Session& session, const Words& arguments);
};

// A form whose fixed words begin with those of another form comes before that one.
extern const std::vector<ExpectRow> kExpectations;

// "expect font NAME STATE"
std::string GetUsage(const ExpectRow& row);

// The `expect` action.
//
// words   at least one: those after "expect"
LineResult RunExpect(Session& session, const Words& words);

}  // namespace headless
