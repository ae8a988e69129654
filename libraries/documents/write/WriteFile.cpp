#include "documents/write/WriteFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace documents {

namespace {

constexpr mode_t kNewFileMode = 0666;

class Descriptor {
public:
    explicit Descriptor(int number) : mNumber(number) {}
    ~Descriptor()
    {
        if (mNumber >= 0) (void)close(mNumber);  // errors matter only in Close(), used on success
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return mNumber; }
    bool Close()
    {
        const int number = mNumber;
        mNumber = -1;
        return close(number) == 0;
    }

private:
    int mNumber;
};

std::string GetLastError() { return std::strerror(errno); }

bool WriteAll(int file, const std::string& bytes)
{
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = write(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        done += static_cast<size_t>(count);
    }
    return true;
}

mode_t GetNewFileMode()
{
    const mode_t mask = umask(0);
    (void)umask(mask);  // umask can be read only by setting it
    return kNewFileMode & ~mask;
}

// Writes `bytes` and flushes them to the disk.
std::string Fill(Descriptor& file, const std::string& bytes, mode_t mode)
{
    if (!WriteAll(file.Get(), bytes) || fchmod(file.Get(), mode) != 0 || fsync(file.Get()) != 0) {
        return GetLastError();
    }
    return file.Close() ? std::string() : GetLastError();
}

}  // namespace

std::string ReplaceFile(const std::string& path, const std::string& bytes)
{
    struct stat status = {};
    const bool isThere = stat(path.c_str(), &status) == 0;
    if (!isThere && errno != ENOENT) return GetLastError();
    if (isThere && S_ISDIR(status.st_mode)) return "is a folder";
    if (isThere && !S_ISREG(status.st_mode)) return "is not a regular file";
    if (isThere && access(path.c_str(), W_OK) != 0) return GetLastError();
    std::string target = path;
    if (isThere) {
        char resolved[PATH_MAX];
        if (realpath(path.c_str(), resolved) == nullptr) return GetLastError();
        target = resolved;
    }
    const size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    std::string temporary = folder + "/.saving-XXXXXX";
    Descriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (file.Get() < 0) return GetLastError();
    std::string error = Fill(file, bytes, isThere ? status.st_mode & 07777 : GetNewFileMode());
    if (error.empty() && rename(temporary.c_str(), target.c_str()) != 0) error = GetLastError();
    if (!error.empty()) {
        (void)unlink(temporary.c_str());  // nothing more can be done
        return error;
    }
    const Descriptor folderFile(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The save has succeeded. Flushing the folder's entry is an attempt; a failure is ignored.
    if (folderFile.Get() >= 0) (void)fsync(folderFile.Get());
    return {};
}

}  // namespace documents
