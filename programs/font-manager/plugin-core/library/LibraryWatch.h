#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace plugincore {

// Detects added and removed libraries. Costs one system call per folder unless a folder changed.
// [main-thread]
class LibraryWatch {
public:
    // Returns the paths of all libraries. Called only if a folder may have changed.
    using List = std::function<std::vector<std::string>()>;

    // Begins to watch these folders. The present libraries are known from now on.
    void Begin(std::vector<std::string> folders, List list);

    // Replaces the folders. The known libraries remain, so that the next HasChanged detects those
    // in new folders.
    void SetFolders(std::vector<std::string> folders);

    // Whether the libraries differ from those at the last call.
    bool HasChanged();

private:
    struct State {
        bool isThere = false;
        uint64_t inode = 0;
        int64_t modified = 0;  // nanoseconds since 1970
        bool operator==(const State& other) const
        {
            return isThere == other.isThere && inode == other.inode && modified == other.modified;
        }
    };
    static State OSLook(const std::string& folder);

    // Whether the folder changed so recently that another change may leave the same time stamp.
    static bool OSIsFresh(const State& state);

    std::vector<std::string> mFolders;
    std::vector<State> mStates;
    std::vector<bool> mFresh;
    List mList;
    std::vector<std::string> mKnown;
};

}  // namespace plugincore
