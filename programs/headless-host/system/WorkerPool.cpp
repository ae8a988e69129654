#include "system/WorkerPool.h"

#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace headless {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPollMilliseconds = 100;
constexpr size_t kNobody = static_cast<size_t>(-1);

// A sanitizer keeps books of its own, far larger than what is kept account of.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TYPELOFT_KEEPS_BOOKS
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(TYPELOFT_KEEPS_BOOKS)
constexpr bool kLimitsMemory = false;
#else
constexpr bool kLimitsMemory = true;
#endif

bool ReadAll(int descriptor, void* bytes, size_t size)
{
    auto* const target = static_cast<char*>(bytes);
    for (size_t have = 0; have < size;) {
        const ssize_t count = read(descriptor, target + have, size - have);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        have += static_cast<size_t>(count);
    }
    return true;
}

bool WriteAll(int descriptor, const void* bytes, size_t size)
{
    const auto* const source = static_cast<const char*>(bytes);
    for (size_t have = 0; have < size;) {
        const ssize_t count = send(descriptor, source + have, size - have, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        have += static_cast<size_t>(count);
    }
    return true;
}

// What the forked process does until its socket is closed.
[[noreturn]] void Serve(int socket, const WorkerLimits& limits,
                        const std::function<std::string(size_t)>& work)
{
    // A group of its own, so that all that it starts can be ended with it; it ends with its parent.
    (void)setpgid(0, 0);                     // fails only if it is the leader already
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);  // a valid signal: can't fail
    (void)std::signal(SIGINT, SIG_DFL);
    (void)std::signal(SIGTERM, SIG_DFL);
    if (limits.memoryBytes > 0 && kLimitsMemory) {
        const rlimit limit = {limits.memoryBytes, limits.memoryBytes};
        (void)setrlimit(RLIMIT_DATA, &limit);  // without it only the machine's own limit holds
    }
    uint64_t request = 0;
    while (ReadAll(socket, &request, sizeof request)) {
        const std::string text = work(static_cast<size_t>(request));
        const uint64_t size = text.size();
        if (!WriteAll(socket, &size, sizeof size) || !WriteAll(socket, text.data(), size)) break;
    }
    _exit(0);
}

class Worker {
public:
    Worker() = default;
    Worker(Worker&& other) noexcept
        : mProcess(std::exchange(other.mProcess, -1)),
          mSocket(std::exchange(other.mSocket, -1)),
          mRequest(other.mRequest),
          mStart(other.mStart)
    {
    }
    Worker& operator=(Worker&&) = delete;
    ~Worker() { (void)End(); }

    void Start(const WorkerLimits& limits, const std::function<std::string(size_t)>& work)
    {
        int sockets[2] = {-1, -1};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) {
            throw std::runtime_error(std::string("no socket: ") + std::strerror(errno));
        }
        const pid_t process = fork();
        if (process == 0) {
            (void)close(sockets[0]);  // just opened
            Serve(sockets[1], limits, work);
        }
        (void)close(sockets[1]);  // just opened
        if (process < 0) {
            (void)close(sockets[0]);  // just opened
            throw std::runtime_error(std::string("no process: ") + std::strerror(errno));
        }
        // The group must be there before anything is sent to it, whoever runs first.
        (void)setpgid(process, process);
        mProcess = process;
        mSocket = sockets[0];
        mRequest = kNobody;
    }

    // Kills the process and all of its group. Gives how it had ended by itself, if it had.
    std::string End()
    {
        if (mProcess < 0) return {};
        int status = 0;
        const bool hadEnded = waitpid(mProcess, &status, WNOHANG) == mProcess;
        (void)kill(-mProcess, SIGKILL);  // nobody may be left
        if (!hadEnded) (void)waitpid(mProcess, &status, 0);
        (void)close(mSocket);
        mProcess = -1;
        mSocket = -1;
        if (WIFSIGNALED(status)) return std::string("ended by ") + strsignal(WTERMSIG(status));
        return "ended with status " + std::to_string(WEXITSTATUS(status));
    }

    bool IsIdle() const { return mRequest == kNobody; }
    bool IsRunning() const { return mProcess >= 0; }
    size_t GetRequest() const { return mRequest; }
    int GetSocket() const { return mSocket; }
    bool IsLate(double seconds) const
    {
        return !IsIdle() && std::chrono::duration<double>(Clock::now() - mStart).count() > seconds;
    }

    void Give(size_t request)
    {
        const uint64_t number = request;
        mRequest = request;
        mStart = Clock::now();
        // If it isn't there any more, that is seen when its answer is awaited.
        (void)WriteAll(mSocket, &number, sizeof number);
    }

    // False if the process is gone.
    bool Take(std::string& text)
    {
        uint64_t size = 0;
        if (!ReadAll(mSocket, &size, sizeof size)) return false;
        text.resize(static_cast<size_t>(size));
        if (!ReadAll(mSocket, text.data(), text.size())) return false;
        mRequest = kNobody;
        return true;
    }

private:
    pid_t mProcess = -1;
    int mSocket = -1;
    size_t mRequest = kNobody;
    Clock::time_point mStart;
};

// All workers and what they still have to do.
class Pool {
public:
    Pool(size_t count, const WorkerLimits& limits, const std::function<std::string(size_t)>& work,
         const std::function<void(size_t, WorkerAnswer)>& done)
        : mCount(count), mLimits(limits), mWork(work), mDone(done)
    {
        mWorkers.resize(std::clamp<size_t>(limits.workers, 1, std::max<size_t>(count, 1)));
    }

    bool IsDone() const { return mNext == mCount && mPending == 0; }

    void Step()
    {
        for (Worker& worker : mWorkers) {
            if (!worker.IsRunning() && mNext < mCount) worker.Start(mLimits, mWork);
            if (!worker.IsRunning() || !worker.IsIdle() || mNext == mCount) continue;
            worker.Give(mNext++);
            ++mPending;
        }
        std::vector<pollfd> polls;
        for (const Worker& worker : mWorkers) {
            polls.push_back({worker.IsIdle() ? -1 : worker.GetSocket(), POLLIN, 0});
        }
        // An interrupted wait is a short one; a failed one is tried again.
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
        if (!worker.Take(answer.text)) {
            Finish(worker, WorkerAnswer::Outcome::kDied);
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
