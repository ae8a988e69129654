#pragma once

#include <string>

#include "application/Application.h"

namespace headless {

// "default", "active", "activated", "missing".
const char* GetStateName(FontState state);

// "none", "dismissed", "shown".
const char* GetDialogName(DialogOutcome outcome);

// One JSON object in one line, without the line end; always with the same members.
std::string WriteReportAsJson(const OpenReport& report);

// A few lines for people, with the last line end.
std::string WriteReportAsTable(const OpenReport& report);

}  // namespace headless
