#include "plugin-core/storage/AtomicFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

[[noreturn]] void Throw(const fs::path& file, int code)
{
    throw Failure(StatusCodes::kError,
                  file.string() + ": cannot be written: " + std::generic_category().message(code));
}

// 0, or the error's number.
int WriteAll(int descriptor, const std::string& bytes)
{
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t count = write(descriptor, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        done += static_cast<size_t>(count);
    }
    return fsync(descriptor) == 0 ? 0 : errno;
}

// mkstemp gives mode 600.
int CopyPermissions(const fs::path& file, int descriptor)
{
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0) return 0;
    return fchmod(descriptor, status.st_mode & 07777) == 0 ? 0 : errno;
}

}  // namespace

void WriteFileAtomically(const fs::path& file, const std::string& bytes)
{
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error) Throw(file.parent_path(), error.value());
    const fs::path target = fs::is_symlink(file, error) ? fs::canonical(file, error) : file;
    if (target.empty()) Throw(file, error.value());
    std::string temporary = target.string() + ".XXXXXX";
    const int descriptor = mkstemp(temporary.data());
    if (descriptor < 0) Throw(file, errno);
    int failure = WriteAll(descriptor, bytes);
    if (failure == 0) failure = CopyPermissions(target, descriptor);
    if (close(descriptor) != 0 && failure == 0) failure = errno;
    if (failure == 0 && rename(temporary.c_str(), target.c_str()) != 0) failure = errno;
    if (failure == 0) return;
    (void)unlink(temporary.c_str());  // the failure that led here is told
    Throw(file, failure);
}

}  // namespace plugincore
