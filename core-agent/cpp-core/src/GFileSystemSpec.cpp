#include "GFileSystemSpec.h"

#include "CppCoreMacros.h"
#include "GFileSystem.h"
#include "GStringUtils.h"
#include "GSystem.h"

namespace {

std::string StripBoth(const std::string& text, const std::string& edge)
{
    return GStringUtils::StripPrecedingString(GStringUtils::StripTrailingString(text, edge), edge);
}

// Returns the index of the separator before the last component, ignoring a trailing separator;
// npos if there is none.
size_t FindLastSeparator(const std::string& path)
{
    const std::string separator = GFileSystem::OSGetPathSeparator();
    const size_t position = path.rfind(separator);
    if (position == std::string::npos || position == 0) return position;
    if (position + separator.size() != path.size()) return position;
    return path.rfind(separator, position - 1);
}

}  // namespace

GFileSystemSpec::GFileSystemSpec() = default;

GFileSystemSpec::GFileSystemSpec(const char* path)
{
    std::string text = StripBoth(path == nullptr ? "" : path, "\"");
    // A failure is in the log and leaves the text, which SetFullPath then checks.
    (void)GFileSystem::OSExpandPath(text);
    if (GFileSystem::OSIsPartialPath(text)) {
        text = GFileSystem::OSGetCWD().AppendPathComponent(text).GetFullPath();
    }
    // A failure is in the log and leaves the path empty.
    (void)SetFullPath(text);
}

std::string GFileSystemSpec::GetFullPath() const { return mFullPath; }

GFileSystemSpec::operator std::string() const { return mFullPath; }

unsigned int GFileSystemSpec::SetFullPath(const std::string& path)
{
    std::string strCopy = path;
    CHECK_CORE_CALL("FileSystem", 1, GFileSystem::OSExpandPath(strCopy));
    CHECK_CORE_CONDITION("FileSystem", 1,
                         !(strCopy.empty() || GFileSystem::OSIsValidFullPath(strCopy)),
                         CoreErrorCodes::kInvalidParam);
    mFullPath = strCopy;
    return CoreErrorCodes::kSuccess;
}

GFileSystemSpec& GFileSystemSpec::AppendPathComponent(const std::string& component)
{
    const std::string separator = GFileSystem::OSGetPathSeparator();
    const std::string stripped = StripBoth(component, separator);
    if (stripped.empty()) return *this;
    // A failure is in the log and leaves the path unchanged.
    (void)SetFullPath(GStringUtils::StripTrailingString(mFullPath, separator) + separator +
                      stripped);
    return *this;
}

GFileSystemSpec& GFileSystemSpec::RemoveLastPathComponent()
{
    const std::string separator = GFileSystem::OSGetPathSeparator();
    const std::string path = mFullPath;
    size_t position = FindLastSeparator(path);
    // Parts of a valid path are valid, so SetFullPath doesn't fail below.
    if (GSystem::IsMacOSX() && position == 0 && path.size() > separator.size()) {
        (void)SetFullPath(separator);
        return *this;
    }
    if (position == std::string::npos) {
        (void)SetFullPath("");
        return *this;
    }
    if (GSystem::IsWindows()) {
        if (position == 2 && path[1] == ':') ++position;
        if (GStringUtils::BeginsWith(path, separator + separator) &&
            GStringUtils::EndsWith(path, separator) &&
            GStringUtils::Split(path, separator).size() == 4) {
            position = 0;
        }
    }
    (void)SetFullPath(path.substr(0, position));
    return *this;
}

std::string GFileSystemSpec::GetLastPathComponent() const
{
    return GetLastPathComponent(mFullPath);
}

std::string GFileSystemSpec::GetLastPathComponent(const std::string& path)
{
    const size_t position = FindLastSeparator(path);
    const std::string last = position == std::string::npos ? path : path.substr(position);
    return StripBoth(last, GFileSystem::OSGetPathSeparator());
}
