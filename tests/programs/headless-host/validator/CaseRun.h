#pragma once

#include <functional>
#include <string>
#include <vector>

#include "validator/Case.h"

// A case that was run, with all lines of its journal if the case wants one.
struct CaseRun {
    headless::ValidatorCase which;
    headless::CaseOutcome outcome;
    std::vector<std::string> journal;
};

// Runs the cases, each in a process of its own, several at a time, until `done` returns false.
void RunCasesOver(const std::string& plugin, const std::vector<headless::ValidatorCase>& cases,
                  const std::function<bool(const CaseRun&)>& done);
