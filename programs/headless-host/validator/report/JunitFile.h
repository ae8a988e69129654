#pragma once

#include <string>
#include <vector>

#include "validator/Case.h"

namespace headless {

// A case as the file of --junit has it.
struct JunitCase {
    std::string family;  // of its rule
    int rule = 0;
    std::string name;
    CaseResult result = CaseResult::kPassed;
    std::string message;               // of the first finding, or why it was skipped
    std::vector<std::string> details;  // lines below it
};

// The cases as JUnit's XML, a test suite for each family, in the order of the cases. Control
// characters and bytes that are not UTF-8 are replaced.
std::string WriteJunit(const std::vector<JunitCase>& cases);

}  // namespace headless
