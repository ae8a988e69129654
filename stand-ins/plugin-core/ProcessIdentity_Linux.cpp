#include "ProcessIdentity.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace plugincore {
namespace {

std::string GetBoot()
{
    std::string boot;
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::getline(file, boot);
    return boot;
}

// Empty if the process is gone. A zombie counts as gone: it holds nothing any more.
std::string GetIdentity(const std::string& pid)
{
    std::ifstream file("/proc/" + pid + "/stat");
    std::string line;
    if (!std::getline(file, line)) return {};
    // The program's name stands in brackets and may hold anything, brackets too.
    const size_t nameEnd = line.rfind(')');
    if (nameEnd == std::string::npos) return {};
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

}  // namespace

std::string GetIdentityOfThisProcess() { return GetIdentity(std::to_string(getpid())); }

bool IsProcessAlive(const std::string& identity)
{
    const std::string pid = identity.substr(0, identity.find(':'));
    const bool isNumber = !pid.empty() && std::all_of(pid.begin(), pid.end(),
                                                      [](char c) { return c >= '0' && c <= '9'; });
    return isNumber && GetIdentity(pid) == identity;
}

}  // namespace plugincore
