#pragma once

#include <string>
#include <vector>

namespace headless {

// Returns the lines of a script of `count` random acts. The same arguments give the same lines.
//
// keepsModel   whether to do only what a real host may do, in its order: what is open, which menu
//              items there are. Otherwise any message may come at any time, with any handle.
// isTypeloft   whether PluginCore may change its answers as well
std::vector<std::string> MakeRandomScript(unsigned long seed, size_t count, bool keepsModel,
                                          bool isTypeloft);

}  // namespace headless
