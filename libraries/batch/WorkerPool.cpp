#include "batch/WorkerPool.h"

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
#include "batch/ShadowMemory.h"

namespace batch {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPollMilliseconds = 100;
constexpr uint64_t kNoMemorySize = UINT64_MAX;  // in place of an answer's size

std::string_view AsBytes(const uint64_t& number)
{
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

// Runs in the worker process until its socket is closed. A request or answer follows its size.
void Serve(int socket, const WorkerLimits& limits, const WorkerPool::Work& work)
{
    (void)std::signal(SIGINT, SIG_DFL);
    (void)std::signal(SIGTERM, SIG_DFL);
    if (limits.memoryBytes > 0 && !kHasShadowMemory) {
        base::LimitResource(RLIMIT_DATA, limits.memoryBytes);
    }
    uint64_t requestSize = 0;
    std::string request;
    while (base::ReadExactly(socket, &requestSize, sizeof requestSize)) {
        try {
            request.resize(static_cast<size_t>(requestSize));
            if (!base::ReadExactly(socket, request.data(), request.size())) break;
            const std::string text = work(request);
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

}  // namespace

// A worker process and the request it works on. If the object is destroyed, the process is killed
// with all that it started.
class WorkerPool::Worker {
public:
    bool IsIdle() const { return !mIsBusy; }
    size_t GetId() const { return mId; }
    int GetSocket() const { return mSocket.Get(); }
    bool IsLate(double seconds) const
    {
        return mIsBusy && std::chrono::duration<double>(Clock::now() - mStart).count() > seconds;
    }

    void Send(size_t id, const std::string& request, const WorkerLimits& limits, const Work& work)
    {
        if (!mProcess.IsRunning()) Start(limits, work);
        mId = id;
        mIsBusy = true;
        mStart = Clock::now();
        const uint64_t size = request.size();
        // If the process has ended, Receive will report it.
        if (!base::SendAll(mSocket.Get(), AsBytes(size))) {
            (void)base::SendAll(mSocket.Get(), request);
        }
    }

    // Waits for the whole answer.
    WorkerAnswer Receive()
    {
        WorkerAnswer answer;
        answer.outcome = ReceiveText(answer.text);
        if (answer.outcome != WorkerAnswer::Outcome::kAnswered) return End(answer.outcome);
        answer.id = mId;
        mIsBusy = false;
        return answer;
    }

    // Kills the process and all that it started.
    WorkerAnswer End(WorkerAnswer::Outcome outcome)
    {
        WorkerAnswer answer{mId, outcome, base::Describe(mProcess.Kill())};
        (void)mSocket.Close();  // nothing is written to it any more
        mIsBusy = false;
        return answer;
    }

private:
    void Start(const WorkerLimits& limits, const Work& work)
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
    }

    WorkerAnswer::Outcome ReceiveText(std::string& text)
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
        return WorkerAnswer::Outcome::kAnswered;
    }

    base::ProcessGroup mProcess;
    base::FileDescriptor mSocket;
    bool mIsBusy = false;
    size_t mId = 0;
    Clock::time_point mStart;
};

WorkerPool::WorkerPool(const WorkerLimits& limits, Work work)
    : mLimits(limits), mWork(std::move(work))
{
    for (size_t i = 0; i < std::max<size_t>(limits.workers, 1); ++i) {
        mWorkers.push_back(std::make_unique<Worker>());
    }
}

WorkerPool::~WorkerPool() = default;

bool WorkerPool::HasIdle() const
{
    return std::any_of(mWorkers.begin(), mWorkers.end(),
                       [](const auto& worker) { return worker->IsIdle(); });
}

bool WorkerPool::HasBusy() const
{
    return !std::all_of(mWorkers.begin(), mWorkers.end(),
                        [](const auto& worker) { return worker->IsIdle(); });
}

void WorkerPool::Send(size_t id, const std::string& request)
{
    for (const std::unique_ptr<Worker>& worker : mWorkers) {
        if (!worker->IsIdle()) continue;
        worker->Send(id, request, mLimits, mWork);
        return;
    }
    throw std::logic_error("no worker is idle");
}

std::vector<WorkerAnswer> WorkerPool::Wait()
{
    std::vector<pollfd> polls;
    for (const std::unique_ptr<Worker>& worker : mWorkers) {
        polls.push_back({worker->IsIdle() ? -1 : worker->GetSocket(), POLLIN, 0});
    }
    // After an interrupted or failed wait, the caller's loop tries again.
    (void)poll(polls.data(), polls.size(), kPollMilliseconds);
    std::vector<WorkerAnswer> answers;
    for (size_t i = 0; i < polls.size(); ++i) {
        if (polls[i].fd < 0) continue;
        if (polls[i].revents != 0) {
            answers.push_back(mWorkers[i]->Receive());
        } else if (mWorkers[i]->IsLate(mLimits.seconds)) {
            answers.push_back(mWorkers[i]->End(WorkerAnswer::Outcome::kTooLong));
        }
    }
    return answers;
}

size_t GetCoreCount()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    if (sched_getaffinity(0, sizeof cores, &cores) != 0) return 1;
    return static_cast<size_t>(std::max(1, CPU_COUNT(&cores)));
}

}  // namespace batch
