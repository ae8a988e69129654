#pragma once

#include <string>

// One absolute path without a trailing separator, or none. What can't be stored leaves it as it
// was; failures are reported.
class GFileSystemSpec {
public:
    GFileSystemSpec();
    // Takes quotes away from both ends, expands a leading tilde and completes a partial path with
    // the working directory; null counts as empty, which is the working directory.
    GFileSystemSpec(const char* path);

    std::string GetFullPath() const;
    operator std::string() const;

    // CoreErrorCodes::kInvalidParam for a relative path; an empty one is accepted.
    unsigned int SetFullPath(const std::string& path);

    // The component may hold separators; an empty one changes nothing.
    GFileSystemSpec& AppendPathComponent(const std::string& component);

    // The parent of "/a" is "/"; that of "/" is the empty path.
    GFileSystemSpec& RemoveLastPathComponent();

    // Without separators: "b" of "/a/b/", empty of "/".
    std::string GetLastPathComponent() const;
    static std::string GetLastPathComponent(const std::string& path);

private:
    std::string mFullPath;
};
