#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace headless {

// Runs work that may hang, crash or use up all memory in worker processes.

struct WorkerLimits {
    size_t workers = 1;      // number of processes
    size_t memoryBytes = 0;  // of each process; 0: no limit
    double seconds = 30;     // for one request
};

struct WorkerAnswer {
    enum class Outcome { kAnswered, kTooLong, kDied, kNoMemory };
    Outcome outcome = Outcome::kAnswered;
    std::string text;  // the result of `work`; for kDied, how the process ended
};

// Calls `work` for the requests 0 to `count` - 1, several at a time, in processes that are forked
// from this one and end with it. A process that exceeds the time limit is killed with all that it
// started, and replaced. So is a process whose `work` throws std::bad_alloc: earlier requests may
// have fragmented its memory.
//
// done            called in this process for each request, in the order in which they finish
// isInterrupted   polled; true ends the work
// Returns false if the work was interrupted. Throws std::runtime_error if no process can be
// started. This process must have one thread only.
bool RunInWorkers(size_t count, const WorkerLimits& limits,
                  const std::function<std::string(size_t)>& work,
                  const std::function<void(size_t, WorkerAnswer)>& done,
                  const std::function<bool()>& isInterrupted);

// The number of processor cores that this process may use; at least 1.
size_t GetCoreCount();

}  // namespace headless
