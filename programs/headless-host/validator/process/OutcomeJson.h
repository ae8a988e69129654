#pragma once

#include <string>

#include "validator/Case.h"

namespace headless {

// "passed", "failed" or "skipped".
const char* GetResultName(CaseResult result);

// The outcome on one line, as a case's process sends it to the validator.
std::string WriteOutcome(const CaseOutcome& outcome);

// Reads what WriteOutcome wrote. Throws a std::exception for anything else.
CaseOutcome ReadOutcome(const std::string& text);

}  // namespace headless
