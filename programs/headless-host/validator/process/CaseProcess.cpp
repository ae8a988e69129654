#include "validator/process/CaseProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <stdexcept>

#include "base/ReadWrite.h"
#include "checks/BrokenRule.h"
#include "system/LeakCheck.h"
#include "system/ShadowMemory.h"
#include "system/TemporaryFolder.h"
#include "validator/process/CaseEnd.h"
#include "validator/process/OutcomeJson.h"

namespace headless {

namespace {

using CaseClock = std::chrono::steady_clock;

constexpr size_t kReadBytes = 65536;
// A process that sends more than that doesn't send an outcome.
constexpr size_t kMostOutcomeBytes = size_t{16} << 20;
// A plug-in that writes without end must not fill the disk within the time limit.
constexpr size_t kMostFileBytes = size_t{256} << 20;
constexpr mode_t kOutputMode = 0600;
constexpr size_t kMostFailedCalls = 1000;
// So often the time limit can pass while a case waits for a processor.
constexpr double kMostWaiting = 20;
// In place of an outcome, which could not be written without memory.
constexpr char kNoMemoryLine[] = "no memory\n";

std::runtime_error MakeSystemError(const std::string& what)
{
    return std::runtime_error(what + ": " + std::strerror(errno));
}

void ReplaceDescriptor(int descriptor, const char* path, int flags)
{
    const base::FileDescriptor file(open(path, flags | O_CLOEXEC, kOutputMode));
    // Without the file the descriptor is closed: nothing may reach the validator's own output.
    if (!file.IsValid() || dup2(file.Get(), descriptor) < 0) (void)close(descriptor);
}

void PrepareChild(const CaseLimits& limits, const std::string& folder, const std::string& output)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) (void)std::signal(signal, SIG_DFL);
    ReplaceDescriptor(STDIN_FILENO, "/dev/null", O_RDONLY);
    ReplaceDescriptor(STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_APPEND);
    ReplaceDescriptor(STDERR_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_APPEND);
    if (chdir(folder.c_str()) != 0) throw MakeSystemError(folder);
    base::LimitResource(RLIMIT_CORE, 0);
    base::LimitResource(RLIMIT_FSIZE, kMostFileBytes);
    if (limits.bytes > 0 && !kHasShadowMemory) base::LimitResource(RLIMIT_AS, limits.bytes);
}

// How long the process was ready to run and waited for a processor; 0 if the system doesn't say.
double ReadWaitingSeconds(pid_t process)
{
    constexpr double kNanosecond = 1e-9;
    double running = 0;
    double waiting = 0;
    std::ifstream file("/proc/" + std::to_string(process) + "/schedstat");
    return file >> running >> waiting ? waiting * kNanosecond : 0;
}

CaseOutcome Perform(const ValidatorCase& which, const CaseBody& body, const std::string& folder)
{
    try {
        return body(which, folder);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        return MakeFailure(kExceptionLeavesPlugin,
                           std::string("an exception: ") + exception.what());
    } catch (...) {
        return MakeFailure(kExceptionLeavesPlugin, "an exception of an unknown type");
    }
}

// An exception that left this function would unwind the copy of the parent's stack.
[[noreturn]] void RunChild(const ValidatorCase& which, const CaseLimits& limits,
                           const CaseBody& body, const std::string& folder,
                           const std::string& output, int pipe) noexcept
{
    try {
        PrepareChild(limits, folder, output);
        // If it cannot be sent, the parent reports how the process ended.
        CaseOutcome outcome = Perform(which, body, folder);
        // The process ends without the exit at which the leak checker looks by itself.
        if (HasLostMemory()) {
            outcome.result = CaseResult::kFailed;
            outcome.findings.push_back({kMemoryLost, FindLostMemory(output)});
        }
        (void)base::WriteAll(pipe, WriteOutcome(outcome) + "\n");
    } catch (const std::bad_alloc&) {
        (void)base::WriteAll(pipe, kNoMemoryLine);
    } catch (const std::exception& exception) {
        CaseOutcome outcome;
        outcome.result = CaseResult::kSkipped;
        outcome.reason = exception.what();
        (void)base::WriteAll(pipe, WriteOutcome(outcome) + "\n");
    }
    _exit(0);
}

}  // namespace

CaseProcess::CaseProcess(ValidatorCase which, const CaseLimits& limits, const CaseBody& body,
                         std::string place)
    : mCase(std::move(which)),
      mLimits(limits),
      mFolder(std::move(place)),
      mOutputFile(mFolder + ".output"),
      mStart(CaseClock::now())
{
    std::error_code error;
    if (!std::filesystem::create_directory(mFolder, error)) {
        throw std::runtime_error(mFolder + ": cannot be created: " + error.message());
    }
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) throw MakeSystemError("cannot create a pipe");
    mPipe = base::FileDescriptor(ends[0]);
    const base::FileDescriptor other(ends[1]);
    // Of the parent's end alone: the two ends have flags of their own. Can't fail for a pipe.
    (void)fcntl(mPipe.Get(), F_SETFL, O_NONBLOCK);
    mProcess = base::ProcessGroup::Fork(
        [&] { RunChild(mCase, mLimits, body, mFolder, mOutputFile, other.Get()); });
    if (!mProcess.IsRunning()) {
        const std::runtime_error failure = MakeSystemError("cannot start a process");
        DeleteFolder(mFolder);
        throw failure;
    }
    mId = mProcess.GetId();
}

CaseProcess::~CaseProcess()
{
    if (mProcess.IsRunning()) (void)mProcess.Kill();
    DeleteFolder(mFolder);
    DeleteFolder(mOutputFile);
}

double CaseProcess::GetSecondsLeft() const
{
    const std::chrono::duration<double> passed = CaseClock::now() - mStart;
    return std::max(0.0, mLimits.seconds + mWaited - passed.count());
}

// Returns whether the outcome is complete. Closes the pipe at its end.
bool CaseProcess::ReadPipe()
{
    char buffer[kReadBytes];
    while (mPipe.IsValid()) {
        const ssize_t count = read(mPipe.Get(), buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) break;
        if (count <= 0 || mReceived.size() > kMostOutcomeBytes) {
            (void)mPipe.Close();  // nothing is written to it
            break;
        }
        mReceived.append(buffer, static_cast<size_t>(count));
    }
    return !mReceived.empty() && mReceived.back() == '\n';
}

bool CaseProcess::Advance()
{
    // In this order: what the process sent before its end is in the pipe then.
    const bool hasEnded = mProcess.HasEnded();
    if (ReadPipe() || hasEnded) return true;
    if (GetSecondsLeft() > 0) return false;
    mWaited = std::min(ReadWaitingSeconds(mId), mLimits.seconds * kMostWaiting);
    mIsLate = GetSecondsLeft() <= 0;
    return mIsLate;
}

CaseOutcome CaseProcess::Finish()
{
    const base::ProcessEnd end = mProcess.Kill();
    CaseOutcome outcome = Judge(end);
    if (mReceived.empty()) {
        outcome.failedCalls = ReadLastLines(mFolder + "/" + kFailedCallsFile, kMostFailedCalls);
    }
    const std::string report = FindSanitizerReport(mOutputFile);
    if (!report.empty()) {
        // The end of the process is the sanitizer's then.
        if (mReceived.empty() && !mIsLate) outcome.findings.clear();
        outcome.result = CaseResult::kFailed;
        outcome.findings.push_back({kCrash, report});
    }
    if (outcome.result == CaseResult::kFailed && outcome.journal.empty()) {
        outcome.journal = ReadLastLines(mFolder + "/journal", kJournalLines);
    }
    return outcome;
}

CaseOutcome CaseProcess::Judge(const base::ProcessEnd& end) const
{
    if (mReceived == kNoMemoryLine) return MakeMemoryFailure(mLimits.bytes);
    if (!mReceived.empty() && mReceived.back() == '\n') {
        try {
            return ReadOutcome(mReceived);
        } catch (const std::exception&) {
            return MakeFailure(kEndsProcess, "wrote to a file descriptor of the host");
        }
    }
    if (mIsLate) return MakeTimeFailure(mLimits.seconds);
    return DescribeEnd(end, mLimits.bytes, mOutputFile);
}

}  // namespace headless
