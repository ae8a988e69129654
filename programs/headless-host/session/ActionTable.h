#pragma once

#include <string>
#include <vector>

#include "session/Completion.h"
#include "session/Session.h"

namespace headless {

// One action of scripts. The parser, the completion of the prompt, the help and the manual are made
// from the table of these rows.
struct ActionRow {
    const char* name;
    const char* arguments;  // as the help shows them; empty for none
    size_t minimum;         // number of arguments
    size_t maximum;
    const char* help;
    bool needsDocument;         // whether a document must be open
    CompleteFunction complete;  // for the arguments; may be null
    LineResult (*run)(Session& session, const Words& arguments);
    bool isSimulated = false;    // only in a simulation
    bool isBeforeStart = false;  // doesn't start the plug-in of a simulation
};

extern const std::vector<ActionRow> kActions;

// "open PATH"
std::string GetUsage(const ActionRow& row);

// All actions and expectations with their help, one per line, in two columns.
std::string DescribeActions();

}  // namespace headless
