#include "documents/postscript/Ghostscript.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>

#include "base/FileDescriptor.h"
#include "base/Files.h"
#include "base/ProcessGroup.h"
#include "base/ReadWrite.h"

namespace documents {

namespace {

// File descriptors of the new process; kArguments names the first two by their numbers.
constexpr int kInput = 10;
constexpr int kOutput = 11;
constexpr int kAlive = 12;  // end of a pipe; closes when the process and its children have ended

// Descriptors of this process that the new one needs are moved here, above the numbers that dup2
// overwrites.
constexpr int kFirstFree = 20;

bool ReadBack(int descriptor, size_t most, std::string& bytes)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || static_cast<size_t>(status.st_size) > most) return false;
    bytes.resize(static_cast<size_t>(status.st_size));
    return lseek(descriptor, 0, SEEK_SET) == 0 &&
           base::ReadExactly(descriptor, bytes.data(), bytes.size());
}

// Replaces the new process by Ghostscript; returns on failure. Must only call functions that are
// safe after a fork.
void Become(const char* program, int input, int output, int alive, size_t memory, size_t mostPdf)
{
    base::LimitResource(RLIMIT_DATA, memory);
    base::LimitResource(RLIMIT_FSIZE, mostPdf);
    base::LimitResource(RLIMIT_CORE, 0);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {0, 1, 2}) {
        if (dup2(nothing, standard) < 0) return;
    }
    if (dup2(input, kInput) < 0 || dup2(output, kOutput) < 0 || dup2(alive, kAlive) < 0) return;
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

std::string DescribeLateDrawing(double seconds)
{
    char text[32];
    (void)std::snprintf(text, sizeof text, "%.3g", seconds);  // a number always fits
    return "Ghostscript took longer than " + std::string(text) + " s";
}

GhostscriptResult DrawWithGhostscript(std::string_view postScript, double seconds,
                                      size_t memoryBytes, size_t mostPdfBytes)
{
    GhostscriptResult result;
    const std::string program = base::FindProgram("gs");
    if (program.empty()) {
        result.error = "Ghostscript isn't installed";
        return result;
    }
    result.error = "Ghostscript cannot be started";
    const auto raise = [](int descriptor) {
        const base::FileDescriptor low(descriptor);
        return base::FileDescriptor(fcntl(low.Get(), F_DUPFD_CLOEXEC, kFirstFree));
    };
    const base::FileDescriptor input = raise(memfd_create("input", MFD_CLOEXEC));
    const base::FileDescriptor output = raise(memfd_create("output", MFD_CLOEXEC));
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return result;
    const base::FileDescriptor end = raise(ends[0]);
    base::FileDescriptor alive = raise(ends[1]);
    if (!input.IsValid() || !output.IsValid() || !end.IsValid() || !alive.IsValid() ||
        base::WriteAll(input.Get(), postScript)) {
        return result;
    }
    base::ProcessGroup group = base::ProcessGroup::Fork([&] {
        Become(program.c_str(), input.Get(), output.Get(), alive.Get(), memoryBytes, mostPdfBytes);
    });
    if (!group.IsRunning()) return result;
    (void)alive.Close();  // a pipe without data: no error matters
    const bool hasEnded = WaitForEnd(end.Get(), seconds);
    const base::ProcessEnd processEnd = hasEnded ? group.WaitAndKillRest() : group.Kill();
    // A program that ignores SIGCHLD gets neither a status nor a signal: then the PDF decides.
    const bool hasFailed = processEnd.status > 0 || processEnd.signal != 0;
    if (!hasEnded) {
        result.error = DescribeLateDrawing(seconds);
        result.isLate = true;
    } else if (hasFailed) {
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
