#pragma once

#include <functional>

// Runs `body` in a child process and stops it before and after each of its system calls. Calls
// `look` at each of these stops. What the child does to the file system it does in system calls, so
// `look` sees every state that another process can see, except those within one call.
//
// body   returns the exit status; runs in a fork of this process
// look   runs in this process, while the calling thread of the child is stopped
// Returns the exit status of the child, or -1 if a signal ended it. Throws std::system_error if the
// system allows no tracing.
int TraceSystemCalls(const std::function<int()>& body, const std::function<void()>& look);
