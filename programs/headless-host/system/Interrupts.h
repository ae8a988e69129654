#pragma once

#include <functional>

// Interrupts, and waiting that an interrupt ends. Main thread.
namespace headless {

// From now on SIGINT, SIGTERM, SIGHUP and SIGPIPE only set a flag, which IsInterrupted reads, so
// that open documents are closed and the plug-in is shut down in order. A closed terminal raises
// SIGHUP, a write to a pipe that nobody reads SIGPIPE. System calls that wait return EINTR.
//
// A signal that this process was started to ignore remains ignored, except for SIGPIPE.
void CatchInterrupts();
bool IsInterrupted();

// Calls `tick` ticksPerSecond times a second for `seconds`. Returns early when interrupted.
void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick);

}  // namespace headless
