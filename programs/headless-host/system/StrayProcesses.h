#pragma once

#include <sys/types.h>

#include <set>

namespace headless {

// Finds processes that child processes of this one started and left behind, those included that
// left their process group: as long as the object exists, they become children of this process
// when their parent ends. One object at a time; main thread.
class StrayProcesses {
public:
    // The children that exist now are not strays.
    StrayProcesses();

    // Kills all strays and waits for their end.
    ~StrayProcesses();
    StrayProcesses(const StrayProcesses&) = delete;
    StrayProcesses& operator=(const StrayProcesses&) = delete;

    // Removes the strays that have ended from the system's table of processes.
    //
    // known   children that the caller waits for itself
    void Collect(const std::set<pid_t>& known) const;

private:
    std::set<pid_t> mBefore;
    int mWasCollecting = 0;
};

}  // namespace headless
