#include "vexcor/system/TreeWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "plugin-core/library/FontFiles.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace vexcor {

TreeWatch::TreeWatch() : mDescriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (!mDescriptor.IsValid()) {
        throw plugincore::Failure(plugincore::StatusCodes::kError,
                                  std::string("cannot watch folders: ") + std::strerror(errno));
    }
}

void TreeWatch::Add(const std::string& folder, std::set<int>& present)
{
    // A call that sets the modification time alone is reported as IN_MODIFY and not as IN_ATTRIB.
    constexpr uint32_t kChanges = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MODIFY |
                                  IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF |
                                  IN_ONLYDIR;
    const int watch = inotify_add_watch(mDescriptor.Get(), folder.c_str(), kChanges);
    if (watch >= 0) {
        present.insert(watch);
        return;
    }
    // The folder was removed since it was listed; its parent has an event for that.
    if (errno == ENOENT || errno == ENOTDIR || !mProblem.empty()) return;
    mProblem = folder + ": cannot be watched: " +
               (errno == ENOSPC ? "the user's limit of watches is reached (fs.inotify."
                                  "max_user_watches)"
                                : std::strerror(errno));
}

void TreeWatch::Watch(const std::vector<std::string>& folders)
{
    std::set<int> present;
    mMissing.clear();
    mProblem.clear();
    for (const std::string& root : folders) {
        std::error_code error;
        if (!fs::is_directory(root, error)) {
            mMissing.push_back(root);
            continue;
        }
        for (const std::string& folder : plugincore::ListFolders(root)) Add(folder, present);
    }
    for (const int watch : mWatches) {
        if (present.count(watch) == 0) {
            (void)inotify_rm_watch(mDescriptor.Get(), watch);  // fails if the folder is gone
        }
    }
    mWatches = std::move(present);
}

bool TreeWatch::TakeChanges()
{
    // The events are discarded: the caller compares the folders themselves with the index.
    std::array<char, 16384> events;
    bool hasChanged = false;
    for (;;) {
        const ssize_t count = read(mDescriptor.Get(), events.data(), events.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return hasChanged;
        hasChanged = true;
    }
}

bool TreeWatch::HasMissingFolderAppeared() const
{
    for (const std::string& folder : mMissing) {
        std::error_code error;
        if (fs::is_directory(folder, error)) return true;
    }
    return false;
}

}  // namespace vexcor
