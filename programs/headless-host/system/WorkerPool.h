#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace headless {

// Work that may hang, crash or use up all memory, done in processes of its own.

struct WorkerLimits {
    size_t workers = 1;
    size_t memoryBytes = 0;  // of each process; 0: no limit
    double seconds = 30;     // for one request
};

struct WorkerAnswer {
    enum class Outcome { kAnswered, kTooLong, kDied };
    Outcome outcome = Outcome::kAnswered;
    std::string text;  // what `work` returned; if it died, how
};

// Does `work` for each of the requests 0 to `count` - 1, several at a time, in processes that are
// forked off this one and end with it; whoever is late is killed with all that it started. `done`
// is called in this process for each, in the order in which they finish. False if `isInterrupted`
// ended it before all were done. Throws std::runtime_error if no process can be had. The caller has
// one thread.
bool RunInWorkers(size_t count, const WorkerLimits& limits,
                  const std::function<std::string(size_t)>& work,
                  const std::function<void(size_t, WorkerAnswer)>& done,
                  const std::function<bool()>& isInterrupted);

// How many requests can be worked on at a time on this machine.
size_t GetCoreCount();

}  // namespace headless
