#include "docfonts/html/SpillFile.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "base/ReadWrite.h"

namespace docfonts {
namespace {

constexpr size_t kBufferSize = 1 << 16;

std::error_code GetSystemError() { return {errno, std::generic_category()}; }

}  // namespace

SpillFile::SpillFile(const std::string& folder)
{
    std::string path = folder + ".docfonts.XXXXXX";
    mFile = base::FileDescriptor(mkostemp(path.data(), O_CLOEXEC));
    if (!mFile.IsValid() || unlink(path.c_str()) != 0) mError = GetSystemError();
}

uint64_t SpillFile::Append(std::string_view bytes)
{
    const uint64_t position = mSize + mBuffer.size();
    if (mError) return position;
    mBuffer += bytes;
    if (mBuffer.size() >= kBufferSize) Flush();
    return position;
}

void SpillFile::Flush()
{
    if (mError || mBuffer.empty()) return;
    mError = base::WriteAll(mFile.Get(), mBuffer);
    mSize += mBuffer.size();
    mBuffer.clear();
}

void SpillFile::Replace(uint64_t position, std::string_view bytes)
{
    if (mError) return;
    if (position >= mSize) {
        mBuffer.replace(position - mSize, bytes.size(), bytes);
        return;
    }
    // Bytes that were appended together can be in both places.
    if (position + bytes.size() > mSize) Flush();
    while (!bytes.empty() && !mError) {
        const ssize_t written =
            pwrite(mFile.Get(), bytes.data(), bytes.size(), static_cast<off_t>(position));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            mError = GetSystemError();
            return;
        }
        position += static_cast<uint64_t>(written);
        bytes.remove_prefix(static_cast<size_t>(written));
    }
}

size_t SpillFile::Read(uint64_t position, char* buffer, size_t size)
{
    Flush();
    size_t done = 0;
    while (!mError && done < size) {
        const ssize_t count =
            pread(mFile.Get(), buffer + done, size - done, static_cast<off_t>(position + done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) mError = GetSystemError();
        if (count <= 0) break;
        done += static_cast<size_t>(count);
    }
    return done;
}

}  // namespace docfonts
