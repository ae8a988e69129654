#include "system/StrayProcesses.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

namespace headless {

namespace {

// Empty if the system doesn't report it.
std::set<pid_t> ListChildren()
{
    const std::string process = std::to_string(getpid());
    std::ifstream file("/proc/" + process + "/task/" + process + "/children");
    std::set<pid_t> children;
    for (pid_t child = 0; file >> child;) children.insert(child);
    return children;
}

}  // namespace

StrayProcesses::StrayProcesses() : mBefore(ListChildren())
{
    // Neither can fail for a valid address or number.
    (void)prctl(PR_GET_CHILD_SUBREAPER, &mWasCollecting);
    (void)prctl(PR_SET_CHILD_SUBREAPER, 1);
}

StrayProcesses::~StrayProcesses()
{
    // The children of a stray become children of this process when it ends, so look again.
    for (bool isFound = true; isFound;) {
        isFound = false;
        for (const pid_t child : ListChildren()) {
            if (mBefore.count(child) > 0) continue;
            isFound = kill(child, SIGKILL) == 0 && waitpid(child, nullptr, 0) == child;
        }
    }
    (void)prctl(PR_SET_CHILD_SUBREAPER, mWasCollecting);
}

void StrayProcesses::Collect(const std::set<pid_t>& known) const
{
    for (const pid_t child : ListChildren()) {
        if (mBefore.count(child) > 0 || known.count(child) > 0) continue;
        (void)waitpid(child, nullptr, WNOHANG);  // 0 if it still runs
    }
}

}  // namespace headless
