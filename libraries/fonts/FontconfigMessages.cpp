#include "fonts/FontconfigMessages.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <sstream>
#include <vector>

#include "base/FileDescriptor.h"
#include "base/Plural.h"
#include "base/ReadWrite.h"
#include "base/Strings.h"

namespace fonts {

namespace {

constexpr char kStart[] = "Fontconfig ";

struct Messages {
    std::mutex mutex;
    std::vector<std::string> lines;  // each once
};

Messages& GetMessages()
{
    static Messages messages;
    return messages;
}

// Puts a file in memory in the place of standard error until Restore.
class RedirectedError {
public:
    RedirectedError()
        : mBefore(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)),
          mFile(memfd_create("messages", MFD_CLOEXEC))
    {
        // If one of these fails, fontconfig prints as it does without this class.
        if (mBefore.IsValid() && mFile.IsValid()) (void)dup2(mFile.Get(), STDERR_FILENO);
    }
    ~RedirectedError()
    {
        if (mBefore.IsValid()) (void)dup2(mBefore.Get(), STDERR_FILENO);
    }
    RedirectedError(const RedirectedError&) = delete;
    RedirectedError& operator=(const RedirectedError&) = delete;

    // Puts standard error back and returns what was written meanwhile.
    std::string Restore()
    {
        if (!mBefore.IsValid() || !mFile.IsValid()) return {};
        (void)dup2(mBefore.Get(), STDERR_FILENO);
        std::string text;
        char part[4096];
        ssize_t count = 0;
        while ((count = pread(mFile.Get(), part, sizeof part, static_cast<off_t>(text.size()))) >
               0) {
            text.append(part, static_cast<size_t>(count));
        }
        return text;
    }

private:
    base::FileDescriptor mBefore;
    base::FileDescriptor mFile;
};

// "Fontconfig error: X" -> "X". Fontconfig calls a file that it cannot find "(null)".
std::string GetMessage(const std::string& line)
{
    constexpr char kNoName[] = "(null)";
    const size_t end = line.find(": ");
    std::string message = end == std::string::npos ? line : line.substr(end + 2);
    const char* const file = std::getenv("FONTCONFIG_FILE");
    if (file != nullptr && base::EndsWith(message, kNoName)) {
        message.replace(message.size() - std::strlen(kNoName), std::string::npos, file);
    }
    return message;
}

void Keep(const std::string& text, std::vector<std::string>& lines)
{
    std::istringstream stream(text);
    std::string others;
    for (std::string line; std::getline(stream, line);) {
        if (!base::StartsWith(line, kStart)) {
            others += line + "\n";
            continue;
        }
        const std::string message = GetMessage(line);
        if (std::find(lines.begin(), lines.end(), message) == lines.end()) lines.push_back(message);
    }
    // Nobody learns of an error of standard error.
    if (!others.empty()) (void)base::WriteAll(STDERR_FILENO, others);
}

}  // namespace

void CollectFontconfigMessages(const std::function<void()>& load)
{
    Messages& messages = GetMessages();
    const std::lock_guard<std::mutex> lock(messages.mutex);
    RedirectedError redirected;
    load();
    const std::string text = redirected.Restore();
    if (!text.empty()) Keep(text, messages.lines);
}

std::string GetFontconfigProblem()
{
    Messages& messages = GetMessages();
    const std::lock_guard<std::mutex> lock(messages.mutex);
    if (messages.lines.empty()) return {};
    const size_t others = messages.lines.size() - 1;
    return messages.lines.front() +
           (others == 0 ? std::string() : " (and " + base::Count(others, "other message") + ")");
}

}  // namespace fonts
