#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/FileDescriptor.h"

namespace vexcor {

// Detects changes in folders and all their subfolders, with inotify. Symbolic links to subfolders
// are not followed, and changes of the target of a symbolic link are not seen.
//
// After each change the caller looks at the folders itself: events say only that there is something
// to look at. One thread.
class TreeWatch {
public:
    // Throws Failure if the system has no inotify instance left for the user.
    TreeWatch();

    // For poll: becomes readable when TakeChanges may return true.
    int GetDescriptor() const { return mDescriptor.Get(); }

    // Watches these folders and the subfolders that exist now, in place of the former ones. Call it
    // again after each change, before looking at the folders: new subfolders are watched only from
    // then on. Folders that can't be watched are skipped; see GetProblem.
    void Watch(const std::vector<std::string>& folders);

    // Returns whether something has changed since the last call. Non-blocking.
    bool TakeChanges();

    // Returns whether a folder that didn't exist at the last call of Watch exists now.
    bool HasMissingFolderAppeared() const;

    // The first folder that the last call of Watch couldn't watch, with the reason; "" if none.
    const std::string& GetProblem() const { return mProblem; }

private:
    void Add(const std::string& folder, std::set<int>& present);

    base::FileDescriptor mDescriptor;
    std::set<int> mWatches;
    std::vector<std::string> mMissing;
    std::string mProblem;
};

}  // namespace vexcor
