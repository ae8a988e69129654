#include "fonts/MappedFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "base/FileDescriptor.h"

namespace fonts {

MappedFile::MappedFile(const std::string& path)
{
    // Without O_NONBLOCK, opening a pipe would wait for a writer.
    const base::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.IsValid() || fstat(file.Get(), &status) != 0) {
        mLacksMemory = errno == ENOMEM;
        mError = "cannot be opened";
    } else if (!S_ISREG(status.st_mode)) {
        mError = "not a regular file";
    } else if (status.st_size == 0) {
        mError = "empty";
    } else {
        constexpr size_t kSmall = 65536;
        const auto size = static_cast<size_t>(status.st_size);
        if (size <= kSmall) {
            Copy(file.Get(), size);
        } else {
            Map(file.Get(), size);
        }
    }
}

void MappedFile::Copy(int file, size_t size)
{
    mBytes = std::malloc(size);
    mIsCopy = true;
    mLacksMemory = mBytes == nullptr;
    while (mBytes != nullptr && mSize < size) {
        const ssize_t count = read(file, static_cast<char*>(mBytes) + mSize, size - mSize);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        mSize += static_cast<size_t>(count);
    }
    if (mSize == 0) mError = "cannot be read";
}

void MappedFile::Map(int file, size_t size)
{
    void* const bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (bytes == MAP_FAILED) {
        mLacksMemory = errno == ENOMEM;
        mError = "cannot be read";
    } else {
        mBytes = bytes;
        mSize = size;
    }
}

MappedFile::~MappedFile()
{
    if (mIsCopy) {
        std::free(mBytes);
    } else if (mBytes != nullptr) {
        (void)munmap(mBytes, mSize);  // can't fail for a whole mapping
    }
}

}  // namespace fonts
