#include "validator/process/CaseEnd.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <fstream>
#include <sstream>

#include "base/Lines.h"
#include "base/Utf8.h"

namespace headless {

namespace {

// Of what a process printed, only the end matters, and a plug-in may print without end.
constexpr std::streamoff kMostTailBytes = std::streamoff{4} << 20;

std::string ReadTail(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (!file || size <= 0) return {};
    const std::streamoff start = size > kMostTailBytes ? size - kMostTailBytes : 0;
    std::string tail(static_cast<size_t>(size - start), '\0');
    file.seekg(start);
    file.read(tail.data(), size - start);
    tail.resize(static_cast<size_t>(file.gcount()));
    return tail;
}

std::string GetSignalText(int signal)
{
    const char* const name = sigabbrev_np(signal);
    const char* const description = sigdescr_np(signal);
    if (name == nullptr || description == nullptr) return "signal " + std::to_string(signal);
    return std::string("SIG") + name + " (" + description + ")";
}

// Whether a function of a stack only hands on what its caller asks for.
bool IsOfLibrary(std::string_view function)
{
    for (const std::string_view start :
         {"operator new", "malloc", "calloc", "realloc", "__", "std::"}) {
        if (function.rfind(start, 0) == 0) return true;
    }
    return false;
}

// The line of std::terminate about an exception that no one catches; empty if there is none.
std::string FindTermination(const std::string& output)
{
    const std::string tail = ReadTail(output);
    for (std::string_view rest = tail; !rest.empty();) {
        const std::string_view line = base::TakeLine(rest);
        if (line.rfind("terminat", 0) == 0) return base::ToMessageText(line);
    }
    return {};
}

}  // namespace

CaseOutcome MakeFailure(BrokenRule rule, const std::string& message)
{
    CaseOutcome outcome;
    outcome.result = CaseResult::kFailed;
    outcome.findings.push_back({rule, message});
    return outcome;
}

CaseOutcome MakeTimeFailure(double seconds)
{
    std::ostringstream text;
    text << "did not end within " << seconds << " s";
    return MakeFailure(kTakesTooLong, text.str());
}

CaseOutcome MakeMemoryFailure(size_t bytes)
{
    return MakeFailure(kNeedsTooMuchMemory,
                       "needed more than " + std::to_string(bytes >> 20) + " MiB of memory");
}

CaseOutcome DescribeEnd(const base::ProcessEnd& end, size_t bytes, const std::string& output)
{
    if (end.signal == 0) {
        return MakeFailure(kEndsProcess,
                           "ended the process with status " + std::to_string(end.status));
    }
    // The text of std::terminate, where a failed allocation has no handler.
    if (end.signal == SIGABRT && ReadTail(output).find("std::bad_alloc") != std::string::npos) {
        return MakeMemoryFailure(bytes);
    }
    // The system sends it if there is no memory left for anyone.
    if (end.signal == SIGKILL) {
        return MakeFailure(kNeedsTooMuchMemory, "was killed, perhaps for its use of memory");
    }
    const std::string reason = end.signal == SIGABRT ? FindTermination(output) : std::string();
    return MakeFailure(
        kCrash, "crashed: " + GetSignalText(end.signal) + (reason.empty() ? "" : ": " + reason));
}

std::string FindSanitizerReport(const std::string& output)
{
    const std::string tail = ReadTail(output);
    std::string_view rest = tail;
    while (!rest.empty()) {
        const std::string_view line = base::TakeLine(rest);
        if (line.find("runtime error: ") != std::string_view::npos) {
            return base::ToMessageText(line);
        }
        if (line.find("Sanitizer: ") == std::string_view::npos) continue;
        if (line.find("LeakSanitizer: ") != std::string_view::npos) continue;
        // "==PID==ERROR: AddressSanitizer: ..."
        const size_t start = std::min(line.find("ERROR: "), line.find("WARNING: "));
        if (start != std::string_view::npos) return base::ToMessageText(line.substr(start));
    }
    return {};
}

std::string FindLostMemory(const std::string& output)
{
    // "Direct leak of 5 byte(s) in 1 object(s) allocated from:", and then "#1 0x1 in Function
    // file".
    constexpr std::string_view kLeak = "irect leak of ";
    constexpr std::string_view kIn = " in ";
    const std::string tail = ReadTail(output);
    std::string_view rest = tail;
    std::string text;
    while (!rest.empty()) {
        const std::string_view line = base::TakeLine(rest);
        const size_t leak = line.find(kLeak);
        if (leak != std::string_view::npos && text.empty()) {
            const size_t size = leak + kLeak.size();
            text = "lost memory: " +
                   base::ToMessageText(line.substr(size, line.find(" allocated", size) - size));
            continue;
        }
        if (text.empty()) continue;
        const size_t in = line.find(kIn);
        if (line.find('#') == std::string_view::npos || in == std::string_view::npos) break;
        const std::string_view function = line.substr(in + kIn.size());
        if (IsOfLibrary(function)) continue;
        return text + " of " + base::ToMessageText(function);
    }
    return text.empty() ? "lost memory" : text;
}

std::vector<std::string> ReadLastLines(const std::string& path, size_t most)
{
    const std::string tail = ReadTail(path);
    std::vector<std::string> lines;
    std::string_view rest = tail;
    while (!rest.empty()) {
        lines.emplace_back(base::TakeLine(rest));
        if (lines.size() > most) lines.erase(lines.begin());
    }
    return lines;
}

}  // namespace headless
