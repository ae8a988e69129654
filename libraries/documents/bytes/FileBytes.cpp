#include "documents/bytes/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "base/FileDescriptor.h"
#include "base/ReadWrite.h"

namespace documents {

namespace {

constexpr size_t kBytesOfHead = 1024;

std::string GetOpenError(int code)
{
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return "no such file";
        case EACCES:
        case EPERM:
            return "no permission to read it";
        default:
            return "cannot be opened: " + std::generic_category().message(code);
    }
}

std::string ReadUpTo(int descriptor, size_t size, std::string& bytes)
{
    const std::error_code error = base::ReadUpTo(descriptor, size, bytes);
    return error ? "cannot be read: " + error.message() : std::string();
}

}  // namespace

FileBytes ReadFileBytes(const std::string& path, size_t limit,
                        std::string (*accepts)(const std::string& head))
{
    FileBytes result;
    // O_NONBLOCK: open() would block on a pipe without a writer.
    const base::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.IsValid() || fstat(file.Get(), &status) != 0) {
        result.error = GetOpenError(errno);
    } else if (S_ISDIR(status.st_mode)) {
        result.error = "is a folder";
    } else if (!S_ISREG(status.st_mode)) {
        result.error = "is not a regular file";
    } else {
        const auto size = static_cast<size_t>(status.st_size);
        result.error =
            ReadUpTo(file.Get(), size < kBytesOfHead ? size : kBytesOfHead, result.bytes);
        if (result.error.empty()) result.error = accepts(result.bytes);
        if (result.error.empty() && size > limit) {
            result.error = "too large: " + std::to_string(size >> 20) + " MiB, at most " +
                           std::to_string(limit >> 20) + " MiB can be read";
        }
        if (result.error.empty()) result.error = ReadUpTo(file.Get(), size, result.bytes);
    }
    if (!result.error.empty()) result.bytes.clear();
    return result;
}

}  // namespace documents
