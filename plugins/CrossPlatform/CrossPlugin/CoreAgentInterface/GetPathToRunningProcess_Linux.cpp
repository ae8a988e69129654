#include "GetPathToRunningProcess.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>

#include "GFileSystem.h"

namespace {

std::vector<unsigned long> ListProcesses()
{
    std::vector<unsigned long> processes;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir("/proc"), closedir);
    if (!folder) return processes;
    while (const dirent* const entry = readdir(folder.get())) {
        char* end = nullptr;
        const unsigned long number = std::strtoul(entry->d_name, &end, 10);
        if (number != 0 && *end == 0) processes.push_back(number);
    }
    std::sort(processes.begin(), processes.end());
    return processes;
}

}  // namespace

void GetUsersAppDataDirectory(std::string& out)
{
    const char* const dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome != nullptr && dataHome[0] != 0) {
        out = dataHome;
        return;
    }
    out = "~/.local/share";
    // A failure leaves the tilde: a folder that doesn't exist, which callers test for.
    (void)GFileSystem::OSExpandPath(out);
}

std::vector<std::string> OSGetRunningExecutables()
{
    std::vector<std::string> paths;
    char target[PATH_MAX];
    for (const unsigned long process : ListProcesses()) {
        const std::string link = "/proc/" + std::to_string(process) + "/exe";
        const ssize_t length = readlink(link.c_str(), target, sizeof target);
        if (length > 0) paths.emplace_back(target, static_cast<size_t>(length));
    }
    return paths;
}

bool OSPathExists(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0;
}
