#pragma once

// Signals that ask the program to end. Main thread.
namespace batch {

// From now on SIGINT, SIGTERM, SIGHUP and SIGPIPE only set a flag, which IsInterrupted reads, so
// that work in progress is ended in order. A closed terminal raises SIGHUP, a write to a pipe that
// nobody reads SIGPIPE. System calls that wait return EINTR.
//
// A signal that this process was started to ignore remains ignored, except for SIGPIPE.
void CatchInterrupts();
bool IsInterrupted();

}  // namespace batch
