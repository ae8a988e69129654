#pragma once

#include <string>

#include "replay/Replay.h"

namespace headless {

// The difference for a reader: the last lines of the journal and those that arose, with the first
// one that differs marked by '>'. Long lines are shortened to what is around the difference.
std::string WriteDifference(const ReplayDifference& difference);

}  // namespace headless
