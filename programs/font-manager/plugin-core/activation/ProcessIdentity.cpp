#include "plugin-core/activation/ProcessIdentity.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "plugin-core/storage/Failure.h"

namespace plugincore {
namespace {

std::string GetBoot()
{
    std::string boot;
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::getline(file, boot);
    return boot;
}

// Reads the identity of the process with this pid from /proc. Returns "" if it can't be read
// (isRead is false then) or the process is a zombie, which can't release anything any more.
std::string GetIdentity(const std::string& pid, bool& isRead)
{
    std::ifstream file("/proc/" + pid + "/stat");
    std::string line;
    isRead = static_cast<bool>(std::getline(file, line));
    // The second field is the program's name in parentheses, and may contain parentheses itself.
    const size_t nameEnd = line.rfind(')');
    if (!isRead || nameEnd == std::string::npos) return {};
    std::istringstream fields(line.substr(nameEnd + 1));
    std::string state;
    fields >> state;
    if (state == "Z" || state == "X") return {};
    constexpr int kFieldsBetweenStateAndStart = 18;
    std::string field;
    for (int skipped = 0; skipped < kFieldsBetweenStateAndStart; ++skipped) fields >> field;
    if (!(fields >> field)) return {};
    return pid + ":" + GetBoot() + ":" + field;
}

// Whether no process has this pid.
bool IsFree(const std::string& pid)
{
    pid_t number = 0;
    const auto result = std::from_chars(pid.data(), pid.data() + pid.size(), number);
    if (result.ec != std::errc() || number <= 0) return true;
    return kill(number, 0) != 0 && errno == ESRCH;
}

}  // namespace

std::string GetIdentityOfThisProcess()
{
    bool isRead = false;
    std::string identity = GetIdentity(std::to_string(getpid()), isRead);
    if (identity.empty()) throw Failure(StatusCodes::kError, "/proc/self/stat: cannot be read");
    return identity;
}

bool IsProcessAlive(const std::string& identity)
{
    if (identity == kUserHolder) return true;
    const std::string pid = identity.substr(0, identity.find(':'));
    const bool isNumber = !pid.empty() && std::all_of(pid.begin(), pid.end(),
                                                      [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) return false;
    bool isRead = false;
    const std::string present = GetIdentity(pid, isRead);
    // /proc can be unreadable for a moment (EMFILE, for example). That must not delete the holds of
    // a running process.
    return isRead ? present == identity : !IsFree(pid);
}

std::string GetNameOfThisProgram()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).filename().string();
}

}  // namespace plugincore
