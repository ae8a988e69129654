#include "system/WorkerPool.h"

#include <poll.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "base/FileDescriptor.h"
#include "base/ProcessGroup.h"
#include "base/ReadWrite.h"
#include "system/ShadowMemory.h"

namespace headless {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPollMilliseconds = 100;
constexpr size_t kNoRequest = static_cast<size_t>(-1);
constexpr uint64_t kNoMemorySize = UINT64_MAX;  // in place of an answer's size

std::string_view AsBytes(const uint64_t& number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

// Runs in the worker process until its socket is closed. Each answer follows its size.
void Serve(int socket, const WorkerLimits& limits, const std::function<std::string(size_t)>& work)
{
    (void)std::signal(SIGINT, SIG_DFL);
    (void)std::signal(SIGTERM, SIG_DFL);
    if (limits.memoryBytes > 0 && !kHasShadowMemory) {
        base::LimitResource(RLIMIT_DATA, limits.memoryBytes);
    }
    uint64_t request = 0;
    while (base::ReadExactly(socket, &request, sizeof request)) {
        try {
            const std::string text = work(static_cast<size_t>(request));
            const uint64_t size = text.size();
            if (base::SendAll(socket, AsBytes(size)) || base::SendAll(socket, text)) break;
        } catch (const std::bad_alloc&) {
            // The process ends in either case, and the parent finds out if this wasn't sent.
            (void)base::SendAll(socket, AsBytes(kNoMemorySize));
            break;
        }
    }
    _exit(0);
}

// A worker process and the request it works on. If the object is destroyed, the process is killed
// with all that it started.
class Worker {
public:
    // Throws std::runtime_error if the system refuses a process.
    void Start(const WorkerLimits& limits, const std::function<std::string(size_t)>& work)
    {
        int sockets[2] = {-1, -1};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) {
            throw std::runtime_error(std::string("cannot create a socket: ") +
                                     std::strerror(errno));
        }
        base::FileDescriptor own(sockets[0]);
        base::FileDescriptor other(sockets[1]);
        mProcess = base::ProcessGroup::Fork([&] {
            (void)own.Close();  // else the worker wouldn't see the parent close it
            Serve(other.Get(), limits, work);
        });
        if (!mProcess.IsRunning()) {
            throw std::runtime_error(std::string("cannot start a process: ") +
                                     std::strerror(errno));
        }
        mSocket = std::move(own);
        mRequest = kNoRequest;
    }

    // Kills the process and all that it started. Returns how it had ended before, if it had.
    std::string End()
    {
        std::string end = base::Describe(mProcess.Kill());
        (void)mSocket.Close();  // nothing is written to it any more
        return end;
    }

    bool IsIdle() const { return mRequest == kNoRequest; }
    bool IsRunning() const { return mProcess.IsRunning(); }
    size_t GetRequest() const { return mRequest; }
    int GetSocket() const { return mSocket.Get(); }
    bool IsLate(double seconds) const
    {
        return !IsIdle() && std::chrono::duration<double>(Clock::now() - mStart).count() > seconds;
    }

    void SendRequest(size_t request)
    {
        const uint64_t number = request;
        mRequest = request;
        mStart = Clock::now();
        // If the process has ended, ReceiveAnswer will report it.
        (void)base::SendAll(mSocket.Get(), AsBytes(number));
    }

    // Waits for the whole answer. Unless the outcome is kAnswered, the process must be ended.
    WorkerAnswer::Outcome ReceiveAnswer(std::string& text)
    {
        uint64_t size = 0;
        if (!base::ReadExactly(mSocket.Get(), &size, sizeof size)) {
            return WorkerAnswer::Outcome::kDied;
        }
        if (size == kNoMemorySize) return WorkerAnswer::Outcome::kNoMemory;
        text.resize(static_cast<size_t>(size));
        if (!base::ReadExactly(mSocket.Get(), text.data(), text.size())) {
            return WorkerAnswer::Outcome::kDied;
        }
        mRequest = kNoRequest;
        return WorkerAnswer::Outcome::kAnswered;
    }

private:
    base::ProcessGroup mProcess;
    base::FileDescriptor mSocket;
    size_t mRequest = kNoRequest;
    Clock::time_point mStart;
};

// All workers, and the requests that are still to be made.
class Pool {
public:
    Pool(size_t count, const WorkerLimits& limits, const std::function<std::string(size_t)>& work,
         const std::function<void(size_t, WorkerAnswer)>& done)
        : mCount(count), mLimits(limits), mWork(work), mDone(done)
    {
        mWorkers.resize(std::clamp<size_t>(limits.workers, 1, std::max<size_t>(count, 1)));
    }

    bool IsDone() const { return mNext == mCount && mPending == 0; }

    // Gives idle workers requests and waits a short time for answers.
    void Step()
    {
        for (Worker& worker : mWorkers) {
            if (!worker.IsRunning() && mNext < mCount) worker.Start(mLimits, mWork);
            if (!worker.IsRunning() || !worker.IsIdle() || mNext == mCount) continue;
            worker.SendRequest(mNext++);
            ++mPending;
        }
        std::vector<pollfd> polls;
        for (const Worker& worker : mWorkers) {
            polls.push_back({worker.IsIdle() ? -1 : worker.GetSocket(), POLLIN, 0});
        }
        // After an interrupted or failed wait, the caller's loop tries again.
        (void)poll(polls.data(), polls.size(), kPollMilliseconds);
        for (size_t i = 0; i < polls.size(); ++i) {
            if (polls[i].fd < 0) continue;
            if (polls[i].revents != 0) {
                TakeAnswer(mWorkers[i]);
            } else if (mWorkers[i].IsLate(mLimits.seconds)) {
                Finish(mWorkers[i], WorkerAnswer::Outcome::kTooLong);
            }
        }
    }

private:
    void TakeAnswer(Worker& worker)
    {
        const size_t request = worker.GetRequest();
        WorkerAnswer answer;
        answer.outcome = worker.ReceiveAnswer(answer.text);
        if (answer.outcome != WorkerAnswer::Outcome::kAnswered) {
            Finish(worker, answer.outcome);
            return;
        }
        --mPending;
        mDone(request, std::move(answer));
    }

    void Finish(Worker& worker, WorkerAnswer::Outcome outcome)
    {
        const size_t request = worker.GetRequest();
        --mPending;
        mDone(request, {outcome, worker.End()});
    }

    size_t mCount;
    const WorkerLimits& mLimits;
    const std::function<std::string(size_t)>& mWork;
    const std::function<void(size_t, WorkerAnswer)>& mDone;
    std::vector<Worker> mWorkers;
    size_t mNext = 0;
    size_t mPending = 0;
};

}  // namespace

bool RunInWorkers(size_t count, const WorkerLimits& limits,
                  const std::function<std::string(size_t)>& work,
                  const std::function<void(size_t, WorkerAnswer)>& done,
                  const std::function<bool()>& isInterrupted)
{
    Pool pool(count, limits, work, done);
    while (!pool.IsDone()) {
        if (isInterrupted()) return false;
        pool.Step();
    }
    return true;
}

size_t GetCoreCount()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    if (sched_getaffinity(0, sizeof cores, &cores) != 0) return 1;
    return static_cast<size_t>(std::max(1, CPU_COUNT(&cores)));
}

}  // namespace headless
