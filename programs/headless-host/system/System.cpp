#include "system/System.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

extern char** environ;

namespace headless {

namespace {

namespace fs = std::filesystem;

volatile std::sig_atomic_t sInterrupted = 0;

void NoteInterrupt(int) { sInterrupted = 1; }

}  // namespace

std::string GetProgramFolder()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().string();
}

std::string MakeAbsolute(const std::string& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

std::string MakeAbsolute(const std::string& folder, const std::string& path)
{
    return (fs::path(folder) / path).lexically_normal().string();
}

bool IsReadableFile(const std::string& path)
{
    std::error_code ignored;  // what can't be looked at isn't readable
    return fs::is_regular_file(path, ignored) && access(path.c_str(), R_OK) == 0;
}

bool IsFolder(const std::string& path)
{
    std::error_code ignored;  // what can't be looked at is none
    return fs::is_directory(path, ignored);
}

std::string GetStateFolder()
{
    const char* const state = std::getenv("XDG_STATE_HOME");
    const char* const home = std::getenv("HOME");
    fs::path folder;
    if (state != nullptr && *state == '/') folder = state;
    if (folder.empty() && home != nullptr && *home == '/') folder = fs::path(home) / ".local/state";
    std::error_code error;
    if (!folder.empty()) (void)fs::create_directories(folder, error);  // false: it was there
    return folder.empty() || error ? std::string() : folder.string();
}

std::vector<std::string> ListPaths(const std::string& folder, const std::string& start)
{
    const size_t slash = start.rfind('/');
    const std::string above = slash == std::string::npos ? "" : start.substr(0, slash + 1);
    const std::string name = start.substr(above.size());
    std::vector<std::string> paths;
    std::error_code error;  // a folder that can't be listed has nothing to offer
    for (fs::directory_iterator entry(fs::path(folder) / above, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string each = entry->path().filename().string();
        const bool isHidden = each[0] == '.' && name.empty();
        if (isHidden || each.rfind(name, 0) != 0) continue;
        std::error_code ignored;  // what can't be looked at is taken for a file
        paths.push_back(above + each + (entry->is_directory(ignored) ? "/" : ""));
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

void SetEnvironment(const char* name, const std::string& value)
{
    // It only fails for lack of memory or a name with '='.
    (void)setenv(name, value.c_str(), 1);
}

bool UseHome(const std::string& folder, std::string& error)
{
    constexpr struct {
        const char* name;
        const char* below;
    } kFolders[] = {{"HOME", ""},
                    {"XDG_DATA_HOME", ".local/share"},
                    {"XDG_CONFIG_HOME", ".config"},
                    {"XDG_CACHE_HOME", ".cache"},
                    {"XDG_STATE_HOME", ".local/state"}};
    for (const auto& row : kFolders) {
        const fs::path path = *row.below == '\0' ? fs::path(folder) : fs::path(folder) / row.below;
        std::error_code code;
        (void)fs::create_directories(path, code);  // false only says that it was there
        if (!code && !fs::is_directory(path)) {
            code = std::make_error_code(std::errc::not_a_directory);
        }
        if (code) {
            error = path.string() + ": " + code.message();
            return false;
        }
        SetEnvironment(row.name, path.string());
    }
    return true;
}

bool IsTerminal(int descriptor) { return isatty(descriptor) == 1; }

void CatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = NoteInterrupt;  // without SA_RESTART: waiting calls come back
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        (void)sigaction(signal, &action, nullptr);  // fails for no valid signal
    }
}

bool IsInterrupted() { return sInterrupted != 0; }

void IdleFor(double seconds, int ticksPerSecond, const std::function<void()>& tick)
{
    using Clock = std::chrono::steady_clock;
    const auto step = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(1.0 / ticksPerSecond));
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                        std::chrono::duration<double>(seconds));
    while (!IsInterrupted() && Clock::now() < end) {
        // A tick that comes late isn't made up for.
        std::this_thread::sleep_for(std::min<Clock::duration>(step, end - Clock::now()));
        tick();
    }
}

int RunCommand(const std::string& command, const std::string& folder, bool outputToError)
{
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&actions) != 0) return -1;
    if (posix_spawnattr_init(&attributes) != 0) {
        (void)posix_spawn_file_actions_destroy(&actions);  // always succeeds
        return -1;
    }
    // A group of its own: an interrupt ends what the command has started as well.
    int failure = posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    if (failure == 0) failure = posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    if (failure == 0 && outputToError) {
        failure = posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
    }
    std::string shell = "/bin/sh";
    std::string option = "-c";
    std::string text = command;
    char* const arguments[] = {shell.data(), option.data(), text.data(), nullptr};
    pid_t child = -1;
    if (failure == 0) {
        failure = posix_spawn(&child, shell.c_str(), &actions, &attributes, arguments, environ);
    }
    // Both always succeed.
    (void)posix_spawn_file_actions_destroy(&actions);
    (void)posix_spawnattr_destroy(&attributes);
    if (failure != 0) return -1;

    int status = 0;
    bool ended = false;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (IsInterrupted() && !ended) {
            ended = true;
            (void)kill(-child, SIGTERM);  // it may have ended by itself just now
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace headless
