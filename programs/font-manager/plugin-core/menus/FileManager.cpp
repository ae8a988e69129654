#include "plugin-core/menus/FileManager.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "base/FileDescriptor.h"
#include "base/Files.h"

namespace plugincore {
namespace {

bool IsSet(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] != '\0';
}

// Only returns if the program can't be started. Must only call functions that are safe after a
// fork.
void BecomeProgram(const char* program, char* const* arguments)
{
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int standard : {0, 1, 2}) {
        if (dup2(nothing, standard) < 0) return;
    }
    (void)execv(program, arguments);
}

// Starts a program that belongs to no process of this one: its parent ends at once, so that nobody
// has to wait for it. Returns whether it was started.
bool StartDetached(const char* program, char* const* arguments)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const base::FileDescriptor failure(ends[0]);
    base::FileDescriptor report(ends[1]);  // closed by the start of the program, or written to
    const pid_t parent = fork();
    if (parent < 0) return false;
    if (parent == 0) {
        (void)setsid();  // fails only for the leader of a group, which a new process isn't
        const pid_t child = fork();
        if (child > 0) _exit(0);
        if (child == 0) BecomeProgram(program, arguments);
        _exit(write(report.Get(), "!", 1) == 1 ? 1 : 2);
    }
    (void)report.Close();  // a pipe without data: no error matters
    while (waitpid(parent, nullptr, 0) < 0 && errno == EINTR) {
    }
    char byte = 0;
    ssize_t count = 0;
    do {
        count = read(failure.Get(), &byte, 1);
    } while (count < 0 && errno == EINTR);
    return count == 0;
}

}  // namespace

bool OpenInFileManager(const std::vector<std::string>& folders)
{
    if (folders.empty() || (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY"))) return false;
    const std::string program = base::FindProgram("gio");
    if (program.empty()) return false;
    std::vector<std::string> words = {"gio", "open"};
    words.insert(words.end(), folders.begin(), folders.end());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    return StartDetached(program.c_str(), arguments.data());
}

}  // namespace plugincore
