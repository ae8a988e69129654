#include "plugin-core/library/LibraryWatch.h"

#include <sys/stat.h>

#include <ctime>

namespace plugincore {
namespace {

constexpr int64_t kNanosecondsPerSecond = 1000000000;

int64_t ToNanoseconds(const timespec& time)
{
    return time.tv_sec * kNanosecondsPerSecond + time.tv_nsec;
}

}  // namespace

LibraryWatch::State LibraryWatch::OSLook(const std::string& folder)
{
    struct stat status = {};
    if (stat(folder.c_str(), &status) != 0) return {};
    return {true, status.st_ino, ToNanoseconds(status.st_mtim)};
}

bool LibraryWatch::OSIsFresh(const State& state)
{
    // Time stamps of files come from a clock with steps of up to 10 ms. Five steps are safe.
    constexpr int64_t kSteps = 50000000;
    timespec now = {};
    if (!state.isThere || clock_gettime(CLOCK_REALTIME_COARSE, &now) != 0) return false;
    const int64_t age = ToNanoseconds(now) - state.modified;
    return age >= 0 && age < kSteps;
}

void LibraryWatch::Begin(std::vector<std::string> folders, List list)
{
    mFolders = std::move(folders);
    mList = std::move(list);
    mStates.clear();
    mFresh.clear();
    for (const std::string& folder : mFolders) {
        mStates.push_back(OSLook(folder));
        mFresh.push_back(OSIsFresh(mStates.back()));
    }
    mKnown = mList();
}

void LibraryWatch::SetFolders(std::vector<std::string> folders)
{
    mFolders = std::move(folders);
    mStates.assign(mFolders.size(), {});
    mFresh.assign(mFolders.size(), true);
}

bool LibraryWatch::HasChanged()
{
    bool isDue = false;
    for (size_t position = 0; position < mFolders.size(); ++position) {
        const State state = OSLook(mFolders[position]);
        if (state == mStates[position] && !mFresh[position]) continue;
        isDue = true;
        mStates[position] = state;
        mFresh[position] = OSIsFresh(state);
    }
    if (!isDue) return false;
    std::vector<std::string> present = mList();
    if (present == mKnown) return false;
    mKnown = std::move(present);
    return true;
}

}  // namespace plugincore
