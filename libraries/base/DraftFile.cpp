#include "base/DraftFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "base/ReadWrite.h"

namespace base {

namespace {

// Of a call that returns 0 on success.
std::error_code GetErrorOf(int result)
{
    return result == 0 ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace

DraftFile::DraftFile(std::string pattern)
    : mPath(std::move(pattern)), mFile(mkostemp(mPath.data(), O_CLOEXEC))
{
    if (mFile.IsValid()) return;
    mCreationError = GetErrorOf(-1);
    mPath.clear();
}

DraftFile::~DraftFile()
{
    if (!mPath.empty()) (void)unlink(mPath.c_str());  // a destructor cannot report an error
}

std::error_code DraftFile::Append(std::string_view bytes)
{
    return mCreationError ? mCreationError : WriteAll(mFile.Get(), bytes);
}

std::error_code DraftFile::Write(std::string_view bytes, std::optional<mode_t> mode)
{
    if (mCreationError) return mCreationError;
    std::error_code error = WriteAll(mFile.Get(), bytes);
    if (!error && mode) error = GetErrorOf(fchmod(mFile.Get(), *mode));
    if (!error) error = GetErrorOf(fsync(mFile.Get()));
    const std::error_code closeError = mFile.Close();
    return error ? error : closeError;
}

std::error_code DraftFile::MoveTo(const std::string& target)
{
    const std::error_code error = GetErrorOf(rename(mPath.c_str(), target.c_str()));
    if (!error) mPath.clear();
    return error;
}

std::error_code DraftFile::LinkTo(const std::string& target) const
{
    return GetErrorOf(link(mPath.c_str(), target.c_str()));
}

void SyncFolder(const std::string& folder)
{
    const FileDescriptor file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.IsValid()) (void)fsync(file.Get());
}

}  // namespace base
