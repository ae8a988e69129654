#pragma once

#include <cstddef>

// The trace function of plugin-bench. It costs what the plug-in's own one costs, and counts its
// calls.
namespace bench_traces {

// Returns the number of calls of the program so far.
size_t GetCount();

// Without traces, a call does nothing but count. The default is with traces.
void SetEnabled(bool isEnabled);

}  // namespace bench_traces
