#include "documents/postscript/Ghostscript.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>

namespace documents {

namespace {

// File descriptors of the new process; kArguments names the first two by their numbers.
constexpr int kInput = 10;
constexpr int kOutput = 11;
constexpr int kAlive = 12;  // a pipe that it holds open: closed when it and its children have ended

class Descriptor {
public:
    explicit Descriptor(int value) : mValue(value) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return mValue; }
    void Close()
    {
        if (mValue >= 0) (void)close(mValue);  // memory or a pipe: no error matters
        mValue = -1;
    }

private:
    int mValue;
};

std::string FindProgram()
{
    const char* const path = std::getenv("PATH");
    std::string rest = path == nullptr ? "" : path;
    while (!rest.empty()) {
        const size_t end = std::min(rest.find(':'), rest.size());
        std::string program = rest.substr(0, end) + "/gs";
        rest.erase(0, end + 1);
        // Ignore relative folders: the result would depend on the current directory.
        if (program.front() == '/' && access(program.c_str(), X_OK) == 0) return program;
    }
    return {};
}

bool WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

bool ReadBack(int descriptor, size_t most, std::string& bytes)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || static_cast<size_t>(status.st_size) > most) return false;
    bytes.resize(static_cast<size_t>(status.st_size));
    size_t have = 0;
    while (have < bytes.size()) {
        const ssize_t count =
            pread(descriptor, &bytes[have], bytes.size() - have, static_cast<off_t>(have));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        have += static_cast<size_t>(count);
    }
    return true;
}

void Limit(int resource, size_t most)
{
    const rlimit limit = {most, most};
    (void)setrlimit(static_cast<__rlimit_resource>(resource),
                    &limit);  // on failure the system's limit applies
}

// Runs in the new process: only functions that are safe after a fork may be called.
[[noreturn]] void Become(const char* program, int input, int output, int alive, size_t memory,
                         size_t mostPdf, pid_t parent)
{
    (void)setpgid(0, 0);  // can't fail: a new process doesn't lead a session
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
    // The parent may have ended before prctl.
    if (getppid() != parent) _exit(127);
    Limit(RLIMIT_DATA, memory);
    Limit(RLIMIT_FSIZE, mostPdf);
    Limit(RLIMIT_CORE, 0);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {0, 1, 2}) {
        if (dup2(nothing, standard) < 0) _exit(127);
    }
    if (dup2(input, kInput) < 0 || dup2(output, kOutput) < 0 || dup2(alive, kAlive) < 0) {
        _exit(127);
    }
    constexpr std::array<const char*, 10> kArguments = {"gs",
                                                        "-q",
                                                        "-dSAFER",
                                                        "-dBATCH",
                                                        "-dNOPAUSE",
                                                        "-sDEVICE=pdfwrite",
                                                        "-dEPSCrop",
                                                        "-sOutputFile=/proc/self/fd/11",
                                                        "/proc/self/fd/10",
                                                        nullptr};
    (void)execv(program, const_cast<char* const*>(kArguments.data()));
    _exit(127);
}

// Waits until no process holds the other end of the pipe. Returns false after `seconds`.
bool WaitForEnd(int pipe, double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    for (;;) {
        const double left = std::chrono::duration<double>(end - Clock::now()).count();
        if (left <= 0) return false;
        pollfd entry = {pipe, POLLIN, 0};
        if (poll(&entry, 1, static_cast<int>(left * 1000) + 1) > 0) return true;
    }
}

}  // namespace

GhostscriptResult DrawWithGhostscript(std::string_view postScript, double seconds,
                                      size_t memoryBytes, size_t mostPdfBytes)
{
    GhostscriptResult result;
    const std::string program = FindProgram();
    if (program.empty()) {
        result.error = "Ghostscript isn't installed";
        return result;
    }
    result.error = "Ghostscript cannot be started";
    // Moves a descriptor above the numbers that Become uses, so that dup2 overwrites none.
    const auto raise = [](int descriptor) {
        const int raised = fcntl(descriptor, F_DUPFD_CLOEXEC, 20);
        if (descriptor >= 0) (void)close(descriptor);  // memory or a pipe: no error matters
        return raised;
    };
    const Descriptor input(raise(memfd_create("input", MFD_CLOEXEC)));
    const Descriptor output(raise(memfd_create("output", MFD_CLOEXEC)));
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return result;
    const Descriptor end(raise(ends[0]));
    Descriptor alive(raise(ends[1]));
    if (input.Get() < 0 || output.Get() < 0 || end.Get() < 0 || alive.Get() < 0 ||
        !WriteAll(input.Get(), postScript)) {
        return result;
    }
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process == 0) {
        Become(program.c_str(), input.Get(), output.Get(), alive.Get(), memoryBytes, mostPdfBytes,
               parent);
    }
    if (process < 0) return result;
    (void)setpgid(process, process);  // both processes do it: either may be first
    alive.Close();
    const bool hasEnded = WaitForEnd(end.Get(), seconds);
    // Kill the whole group: before waitpid if it is late, and afterwards to end children left over.
    if (!hasEnded) (void)kill(-process, SIGKILL);
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
    (void)kill(-process, SIGKILL);
    if (!hasEnded) {
        result.error =
            "Ghostscript took longer than " + std::to_string(static_cast<long>(seconds)) + " s";
    } else if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        result.error = "Ghostscript cannot draw it";
    } else if (!ReadBack(output.Get(), mostPdfBytes, result.pdf) || result.pdf.empty()) {
        result.pdf.clear();
        result.error = "Ghostscript drew nothing";
    } else {
        result.error.clear();
    }
    return result;
}

}  // namespace documents
