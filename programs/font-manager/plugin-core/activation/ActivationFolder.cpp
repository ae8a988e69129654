#include "plugin-core/activation/ActivationFolder.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <time.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

[[noreturn]] void Throw(const fs::path& path, const char* what, const std::error_code& error)
{
    throw Failure(StatusCodes::kError, path.string() + ": " + what + ": " + error.message());
}

std::string GetGroupName(int64_t group) { return "g" + std::to_string(group); }

bool IsHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); }

// The number in the name of a group's folder; 0, which no group has, for any other name.
int64_t GetGroupNumber(const std::string& name)
{
    constexpr size_t kMostDigits = 18;
    if (name.size() < 2 || name.size() > kMostDigits || name[0] != 'g') return 0;
    const bool isNumber = std::all_of(name.begin() + 1, name.end(),
                                      [](unsigned char c) { return std::isdigit(c) != 0; });
    return isNumber ? std::stoll(name.substr(1)) : 0;
}

bool IsLeftover(const std::string& name)
{
    const fs::path path = name;
    return name[0] == '.' && (path.extension() == ".new" || path.extension() == ".old") &&
           GetGroupNumber(path.stem().string().substr(1)) != 0;
}

void Remove(const fs::path& path)
{
    std::error_code error;
    fs::remove_all(path, error);
    if (error) Throw(path, "cannot be removed", error);
}

void MakeLinks(const fs::path& folder, const ActivationFolder::Links& links)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) Throw(folder, "cannot be created", error);
    for (const auto& [name, file] : links) {
        fs::create_symlink(file, folder / name, error);
        if (error) Throw(folder / name, "cannot be created", error);
    }
}

void RemoveOthers(const fs::path& folder, const ActivationFolder::Links& links)
{
    std::vector<fs::path> others;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (links.count(entry->path().filename()) == 0) others.push_back(entry->path());
    }
    for (const fs::path& other : others) Remove(other);
}

void Rename(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::rename(from, to, error);
    if (error) Throw(to, "cannot be replaced", error);
}

bool IsAfter(const timespec& left, const timespec& right)
{
    return left.tv_sec > right.tv_sec ||
           (left.tv_sec == right.tv_sec && left.tv_nsec > right.tv_nsec);
}

// Gives the folder a modification time that it never had: the time by the clock with fine steps,
// and later than the present one. A missing folder is no error.
void TouchFolder(const fs::path& folder)
{
    constexpr long kMostNanoseconds = 999999999;
    struct stat status = {};
    timespec now = {};
    if (stat(folder.c_str(), &status) != 0 || clock_gettime(CLOCK_REALTIME, &now) != 0) return;
    if (!IsAfter(now, status.st_mtim)) {
        now = status.st_mtim;
        if (++now.tv_nsec > kMostNanoseconds) now = {now.tv_sec + 1, 0};
    }
    const timespec times[] = {{0, UTIME_OMIT}, now};
    // Fails only for a folder of another user, in which the change itself would have failed.
    (void)utimensat(AT_FDCWD, folder.c_str(), times, 0);
}

}  // namespace

std::string ActivationFolder::MakeLinkName(size_t position, const std::string& file)
{
    // The file's name is kept for people who look into the folder, up to the file system's limit.
    constexpr size_t kLongestName = 200;
    const fs::path name = fs::path(file).filename();
    const std::string number = std::to_string(position);
    if (name.native().size() > kLongestName) return number + name.extension().string();
    return number + "-" + name.string();
}

// Groups are spread over 256 folders: fontconfig lists a folder again when its entries change.
fs::path ActivationFolder::GetParent(int64_t group) const
{
    constexpr const char* kDigits = "0123456789abcdef";
    return mFolder / std::string{kDigits[(group >> 4) & 15], kDigits[group & 15]};
}

// Creates the folder above a group. The user's font folder gets a new entry by the first group.
void ActivationFolder::MakeParent(int64_t group) const
{
    std::error_code error;
    const bool isFirst = fs::create_directories(mFolder, error);
    if (!error) fs::create_directories(GetParent(group), error);
    if (error) Throw(GetParent(group), "cannot be created", error);
    if (isFirst) TouchFolder(mFolder.parent_path());
}

void ActivationFolder::TouchAbove(int64_t group) const
{
    TouchFolder(GetParent(group));
    TouchFolder(mFolder);
}

void ActivationFolder::Touch() const
{
    std::set<fs::path> parents;
    for (const fs::path& entry : ListEntries()) {
        TouchFolder(entry);
        parents.insert(entry.parent_path());
    }
    for (const fs::path& parent : parents) TouchFolder(parent);
    TouchFolder(mFolder);
}

void ActivationFolder::Show(int64_t group, const Links& links) const
{
    const fs::path parent = GetParent(group);
    const fs::path prepared = parent / ("." + GetGroupName(group) + ".new");
    Remove(prepared);
    Hide(group);
    try {
        MakeParent(group);
        MakeLinks(prepared, links);
        TouchFolder(prepared);
        Rename(prepared, parent / GetGroupName(group));
        TouchAbove(group);
    } catch (...) {
        std::error_code error;
        (void)fs::remove_all(prepared, error);  // invisible; the first error is thrown
        throw;
    }
}

void ActivationFolder::KeepOnly(int64_t group, const Links& links) const
{
    const fs::path visible = GetParent(group) / GetGroupName(group);
    const fs::path prepared = GetParent(group) / ("." + GetGroupName(group) + ".new");
    Remove(prepared);
    MakeLinks(prepared, links);
    TouchFolder(prepared);
    // Exchanged and not replaced: the path always exists, so that a reader that has listed it finds
    // the remaining links.
    const bool isExchanged =
        renameat2(AT_FDCWD, prepared.c_str(), AT_FDCWD, visible.c_str(), RENAME_EXCHANGE) == 0;
    std::error_code error;
    if (!isExchanged) {  // not every file system can exchange
        RemoveOthers(visible, links);
        TouchFolder(visible);
    }
    (void)fs::remove_all(prepared, error);  // invisible; RemoveLeftovers tries again
    TouchAbove(group);
}

void ActivationFolder::Hide(int64_t group) const
{
    const fs::path parent = GetParent(group);
    const fs::path visible = parent / GetGroupName(group);
    const fs::path hidden = parent / ("." + GetGroupName(group) + ".old");
    std::error_code error;
    if (!fs::exists(fs::symlink_status(visible, error))) return;
    Remove(hidden);
    Rename(visible, hidden);
    (void)fs::remove_all(hidden, error);  // invisible; RemoveLeftovers tries again
    (void)fs::remove(parent, error);      // fails if another group is in it
    TouchAbove(group);
}

bool ActivationFolder::Holds(int64_t group, const Links& links) const
{
    Links found;
    std::error_code error;
    fs::directory_iterator entry(GetParent(group) / GetGroupName(group), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code noLink;
        found[entry->path().filename()] = fs::read_symlink(entry->path(), noLink);
    }
    return !error && found == links;
}

std::vector<fs::path> ActivationFolder::ListEntries() const
{
    std::vector<fs::path> entries;
    std::error_code error;
    fs::directory_iterator parent(mFolder, error);
    for (; !error && parent != fs::directory_iterator(); parent.increment(error)) {
        const std::string name = parent->path().filename();
        if (name.size() != 2 || !IsHexDigit(name[0]) || !IsHexDigit(name[1])) continue;
        std::error_code noFolder;
        fs::directory_iterator entry(parent->path(), noFolder);
        for (; !noFolder && entry != fs::directory_iterator(); entry.increment(noFolder)) {
            entries.push_back(entry->path());
        }
    }
    return entries;
}

std::vector<int64_t> ActivationFolder::List() const
{
    std::vector<int64_t> groups;
    for (const fs::path& entry : ListEntries()) {
        const int64_t group = GetGroupNumber(entry.filename());
        if (group != 0 && entry.parent_path() == GetParent(group)) groups.push_back(group);
    }
    return groups;
}

size_t ActivationFolder::RemoveLeftovers() const
{
    size_t count = 0;
    for (const fs::path& entry : ListEntries()) {
        if (!IsLeftover(entry.filename())) continue;
        Remove(entry);
        ++count;
    }
    return count;
}

}  // namespace plugincore
