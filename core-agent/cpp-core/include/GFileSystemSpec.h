#pragma once

#include <string>

// An absolute path without a trailing separator, or the empty path.
//
// No operation looks whether a file exists. Operations that fail leave the path unchanged and write
// to the log. Copies are independent. [any thread, one object on one thread at a time]
class GFileSystemSpec {
public:
    GFileSystemSpec();
    // Removes double quotes from both ends, expands a leading tilde and completes a partial path
    // with the working directory. Null and "" give the working directory. Empty on failure.
    GFileSystemSpec(const char* path);

    std::string GetFullPath() const;
    operator std::string() const;

    // Expands a leading tilde and stores the path without trailing separators. "" is accepted.
    // Returns 0, CoreErrorCodes::kInvalidParam for a relative path, or the error of
    // GFileSystem::OSExpandPath.
    unsigned int SetFullPath(const std::string& path);

    // Appends the component after one separator. The component may contain separators; those at its
    // ends are ignored, and an empty one changes nothing. Returns *this.
    GFileSystemSpec& AppendPathComponent(const std::string& component);

    // Replaces the path by its parent's. The parent of "/a" is "/", that of "/" is the empty path.
    // Returns *this.
    GFileSystemSpec& RemoveLastPathComponent();

    // Returns the last component without separators: "b" for "/a/b" and "/a/b/", "" for "/".
    std::string GetLastPathComponent() const;
    static std::string GetLastPathComponent(const std::string& path);

private:
    std::string mFullPath;
};
