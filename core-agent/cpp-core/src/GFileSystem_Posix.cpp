#include "GFileSystem.h"

#include <unistd.h>

#include "CppCoreMacros.h"
#include "GStringUtils.h"

namespace {

// The same everywhere: a longer working directory is the reported failure.
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
    // A failure leaves the empty path, and is reported.
    (void)folder.SetFullPath(curPath);
    return folder;
}
