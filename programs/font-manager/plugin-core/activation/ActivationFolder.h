#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace plugincore {

// The folder below the user's fonts in which fontconfig finds the fonts that PluginCore activated.
//
// Each group of fonts is a folder of symbolic links, <2 hex digits>/g<number>. It is added, changed
// and removed atomically: a reader sees all of a group or nothing of it. It is prepared and deleted
// under a name with a leading dot, which fontconfig ignores. (Exception: a reader without a cache
// that is reading the files of a group when it is removed misses the files that it hasn't reached.)
//
// fontconfig uses its cache of a folder as long as the folder has the modification time that it had
// when the cache was written. The file system's clock has coarse steps, so two changes can leave
// the same time. Each change therefore ends by giving the changed folders a new time, which no
// earlier change gave them (unless the system's clock is set back).
//
// Only one process at a time may change the folder: callers hold the database's write lock. Errors
// are thrown as Failure.
class ActivationFolder {
public:
    // The name of each link and the file that it leads to.
    using Links = std::map<std::string, std::string>;

    explicit ActivationFolder(std::filesystem::path folder) : mFolder(std::move(folder)) {}

    // Returns the name for a link to a file. `position` makes it unique in its group.
    static std::string MakeLinkName(size_t position, const std::string& file);

    // Adds a group atomically. Removes an existing group with this number first.
    void Show(int64_t group, const Links& links) const;

    // Removes the other links of a group atomically. `links` must exist already, and they remain
    // visible throughout.
    void KeepOnly(int64_t group, const Links& links) const;

    // Removes a group atomically. A missing group is no error.
    void Hide(int64_t group) const;

    // Whether the group exists and has exactly these links.
    bool Holds(int64_t group, const Links& links) const;

    // Gives all folders new times, so that fontconfig reads them again. For the repair after a
    // process was killed, possibly between a change and its new time.
    void Touch() const;

    // The numbers of all groups.
    std::vector<int64_t> List() const;

    // Removes folders that a killed process was preparing or deleting. Returns their number.
    // Ignores files and folders that this class didn't create.
    size_t RemoveLeftovers() const;

    const std::filesystem::path& GetPath() const { return mFolder; }

private:
    std::filesystem::path GetParent(int64_t group) const;
    std::vector<std::filesystem::path> ListEntries() const;
    void MakeParent(int64_t group) const;
    void TouchAbove(int64_t group) const;

    std::filesystem::path mFolder;
};

}  // namespace plugincore
