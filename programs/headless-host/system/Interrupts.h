#pragma once

#include <functional>

#include "batch/Interrupts.h"

// Interrupts, and waiting that an interrupt ends. Main thread.
namespace headless {

using batch::CatchInterrupts;
using batch::IsInterrupted;

// Calls `tick` ticksPerSecond times a second for `seconds`. Returns early when interrupted.
void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick);

}  // namespace headless
