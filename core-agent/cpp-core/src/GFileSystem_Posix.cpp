#include "GFileSystem.h"

#include <unistd.h>

#include "CppCoreMacros.h"
#include "GStringUtils.h"

namespace {

// Not PATH_MAX, which differs between platforms: a longer working directory fails on all of them.
constexpr size_t kMaximumPath = 1024;

}  // namespace

std::string GFileSystem::OSGetPathSeparator() { return "/"; }

bool GFileSystem::OSIsPartialPath(const std::string& path)
{
    return path.empty() || path[0] != '/';
}

bool GFileSystem::OSIsValidFullPath(std::string& path)
{
    if (path.empty() || path[0] != '/') return false;
    const std::string separator = OSGetPathSeparator();
    if (path != separator) path = GStringUtils::StripTrailingString(path, separator);
    return true;
}

GFileSystemSpec GFileSystem::OSGetCWD()
{
    GFileSystemSpec folder;
    char curPath[kMaximumPath] = {};
    if (getcwd(curPath, sizeof curPath) == nullptr) {
        LogCoreError("FileSystem", 1, CoreErrorCodes::kError,
                     "NULL == getcwd(&curPath[0], PATH_MAX)");
        return folder;
    }
    // A failure is in the log and leaves the path empty.
    (void)folder.SetFullPath(curPath);
    return folder;
}
