#include "documents/bytes/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace documents {

namespace {

constexpr size_t kBytesOfHead = 1024;

class FileDescriptor {
public:
    explicit FileDescriptor(int value) : mValue(value) {}
    ~FileDescriptor()
    {
        // The file was only read, so a failing close loses nothing.
        if (mValue >= 0) (void)close(mValue);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int Get() const { return mValue; }

private:
    int mValue;
};

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

// Reads until `bytes` has `size` bytes or the file ends, whichever comes first.
std::string ReadUpTo(int descriptor, size_t size, std::string& bytes)
{
    size_t have = bytes.size();
    bytes.resize(size);
    while (have < size) {
        const ssize_t count = read(descriptor, &bytes[have], size - have);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return "cannot be read: " + std::generic_category().message(errno);
        if (count == 0) break;
        have += static_cast<size_t>(count);
    }
    bytes.resize(have);
    return {};
}

}  // namespace

FileBytes ReadFileBytes(const std::string& path, size_t limit,
                        std::string (*accepts)(const std::string& head))
{
    FileBytes result;
    // O_NONBLOCK: open() would block on a pipe without a writer.
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0) {
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
