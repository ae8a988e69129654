#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Runs work that may hang, crash or use up all memory in worker processes.
namespace batch {

struct WorkerLimits {
    size_t workers = 1;      // number of processes, at least 1
    size_t memoryBytes = 0;  // of each process; 0: no limit
    double seconds = 30;     // for one request
};

struct WorkerAnswer {
    enum class Outcome { kAnswered, kTooLong, kDied, kNoMemory };
    size_t id = 0;  // as given to Send
    Outcome outcome = Outcome::kAnswered;
    std::string text;  // the result of the work; for kDied, how the process ended
};

// Processes that are forked from this one when they are needed, and end with it. A process that
// exceeds the time limit is killed with all that it started, and replaced. So is a process whose
// work throws std::bad_alloc: earlier requests may have fragmented its memory. This process must
// have one thread only.
class WorkerPool {
public:
    // `work` is called in a worker, with the text of a request.
    using Work = std::function<std::string(const std::string& request)>;

    WorkerPool(const WorkerLimits& limits, Work work);

    // Kills the processes.
    ~WorkerPool();

    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Whether a worker is without a request.
    bool HasIdle() const;
    bool HasBusy() const;

    // Gives a request to an idle worker, of which there must be one. Throws std::runtime_error if
    // no process can be started.
    void Send(size_t id, const std::string& request);

    // Waits a short time, or until a signal arrives. Returns the answers that have come.
    std::vector<WorkerAnswer> Wait();

private:
    class Worker;

    WorkerLimits mLimits;
    Work mWork;
    std::vector<std::unique_ptr<Worker>> mWorkers;
};

// The number of processor cores that this process may use; at least 1.
size_t GetCoreCount();

}  // namespace batch
