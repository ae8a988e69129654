#pragma once

#include <set>
#include <string>
#include <vector>

namespace vexcor {

// Tells that something has changed in folders or anywhere below them. Links to folders below them
// aren't followed, and what changes behind a link to a file isn't seen.
class TreeWatch {
public:
    // Throws Failure if the system gives no watch.
    TreeWatch();
    ~TreeWatch();
    TreeWatch(const TreeWatch&) = delete;
    TreeWatch& operator=(const TreeWatch&) = delete;

    // Becomes readable when there may be changes to take.
    int GetDescriptor() const { return mDescriptor; }

    // Watches these folders, as they are now, from now on. To be called again after each change:
    // folders that have come are watched from then on, so what is in them has to be looked at after
    // it.
    void Watch(const std::vector<std::string>& folders);

    // Whether something has changed since the last call. Doesn't wait.
    bool TakeChanges();

    // Whether one of the folders that weren't there is there now.
    bool HasMissingFolderCome() const;

    // The first folder that can't be watched and the reason, in one line; empty if there is none.
    const std::string& GetProblem() const { return mProblem; }

private:
    void Add(const std::string& folder, std::set<int>& present);

    int mDescriptor;
    std::set<int> mWatches;
    std::vector<std::string> mMissing;
    std::string mProblem;
};

}  // namespace vexcor
