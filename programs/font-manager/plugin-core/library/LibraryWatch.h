#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace plugincore {

// Tells that libraries came or went. A look costs one system call for each folder unless one of
// them has changed.
class LibraryWatch {
public:
    // `list` gives the paths of all libraries; it is asked only when a folder has changed.
    using List = std::function<std::vector<std::string>()>;

    // From now on these folders are looked at; what is there now is known.
    void Begin(std::vector<std::string> folders, List list);

    // Looks at other folders from now on. What is known stays, so that the next look tells what
    // they bring.
    void SetFolders(std::vector<std::string> folders);

    // Whether other libraries are there than at the last look.
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

    // Whether the folder changed so short a time ago that another change may leave the same time.
    static bool OSIsFresh(const State& state);

    std::vector<std::string> mFolders;
    std::vector<State> mStates;
    std::vector<bool> mFresh;
    List mList;
    std::vector<std::string> mKnown;
};

}  // namespace plugincore
