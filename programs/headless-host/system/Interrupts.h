#pragma once

#include <functional>

// Interrupts, and waiting that an interrupt ends. Main thread.
namespace headless {

// From now on SIGINT, SIGTERM and SIGHUP only set a flag, which IsInterrupted reads, so that open
// documents are closed and the plug-in is shut down in order. System calls that wait return EINTR.
void CatchInterrupts();
bool IsInterrupted();

// Calls `tick` ticksPerSecond times a second for `seconds`. Returns early when interrupted.
void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick);

}  // namespace headless
