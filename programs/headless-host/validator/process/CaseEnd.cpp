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
    return MakeFailure(kCrash, "crashed: " + GetSignalText(end.signal));
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
        // "==PID==ERROR: AddressSanitizer: ..."
        const size_t start = std::min(line.find("ERROR: "), line.find("WARNING: "));
        if (start != std::string_view::npos) return base::ToMessageText(line.substr(start));
    }
    return {};
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
