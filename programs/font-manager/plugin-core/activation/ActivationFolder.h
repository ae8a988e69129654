#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace plugincore {

// The folder below the user's fonts through which fontconfig sees what PluginCore activated.
//
// Each group of fonts is a folder of links, <2 hex digits>/g<number>, which comes, changes and goes
// in one step: a reader sees all of a group or none. It is prepared, and taken apart, under a name
// with a leading dot, which fontconfig passes over. (A reader that is opening a group's files for
// the first time, with no cache yet, at the moment the group goes, misses those it hasn't come to.)
//
// Only one process at a time may call what changes the folder; the database's write lock sees to
// that. Failures are thrown as Failure.
class ActivationFolder {
public:
    // From the name of a link to the file that it leads to.
    using Links = std::map<std::string, std::string>;

    explicit ActivationFolder(std::filesystem::path folder) : mFolder(std::move(folder)) {}

    // The name of a file's link; `position` makes it the only one in its group.
    static std::string MakeLinkName(size_t position, const std::string& file);

    // Makes the group visible in one step. What is there under that number goes first.
    void Show(int64_t group, const Links& links) const;

    // Leaves only these links, all of them there already, in a visible group. They are visible at
    // any moment, and the others go in one step.
    void KeepOnly(int64_t group, const Links& links) const;

    // Makes the group invisible in one step, then removes it. One that isn't there is no failure.
    void Hide(int64_t group) const;

    // Whether the group is there with exactly these links.
    bool Holds(int64_t group, const Links& links) const;

    // The numbers of all groups that are there.
    std::vector<int64_t> List() const;

    // Removes what a killed process left half done; returns how much. Nothing that this class
    // didn't make is touched.
    size_t RemoveLeftovers() const;

    const std::filesystem::path& GetPath() const { return mFolder; }

private:
    std::filesystem::path GetParent(int64_t group) const;
    std::vector<std::filesystem::path> ListEntries() const;

    std::filesystem::path mFolder;
};

}  // namespace plugincore
