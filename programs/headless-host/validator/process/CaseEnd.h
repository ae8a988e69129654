#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/ProcessGroup.h"
#include "checks/BrokenRule.h"
#include "validator/Case.h"

// What becomes of a case whose process didn't report an outcome.
namespace headless {

constexpr size_t kJournalLines = 10;  // how many are reported of a case that failed

CaseOutcome MakeFailure(BrokenRule rule, const std::string& message);
CaseOutcome MakeTimeFailure(double seconds);
CaseOutcome MakeMemoryFailure(size_t bytes);

// The finding for a process that ended before it reported an outcome: a crash, a lack of memory, or
// the end of the process by the plug-in.
//
// bytes    of the memory limit
// output   the file with what the process printed
CaseOutcome DescribeEnd(const base::ProcessEnd& end, size_t bytes, const std::string& output);

// The first line in which a sanitizer reports an error, without the number of the process; empty if
// there is none. Lost memory isn't meant: the case that lost it ended well.
//
// output   the file with what the process printed
std::string FindSanitizerReport(const std::string& output);

// One line about the first memory that the leak checker reports as lost: how much, and the function
// that allocated it, as far as that is known.
//
// output   the file with what the process printed
std::string FindLostMemory(const std::string& output);

// Where in the folder of a case the calls that fail on purpose are written as they fail, so that
// they are known of a process that ends in one. See PlayScript.
constexpr char kFailedCallsFile[] = "world/failed-calls";

// The last lines of a file, at most `most`; empty if it cannot be read.
std::vector<std::string> ReadLastLines(const std::string& path, size_t most);

}  // namespace headless
