#pragma once

#include <functional>
#include <string>
#include <vector>

namespace headless {

// Returns a script with as few of the lines as possible, in their order, that still fails. None of
// its lines can be left out by itself.
//
// fails      whether a script fails in the same way; true for `lines`
// mostRuns   limits the number of its calls; then the result may be longer than necessary
std::vector<std::string> ShrinkScript(
    std::vector<std::string> lines, size_t mostRuns,
    const std::function<bool(const std::vector<std::string>& lines)>& fails);

}  // namespace headless
