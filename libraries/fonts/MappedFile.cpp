#include "fonts/MappedFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <cerrno>

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
        const auto size = static_cast<size_t>(status.st_size);
        void* const bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.Get(), 0);
        if (bytes == MAP_FAILED) {
            mLacksMemory = errno == ENOMEM;
            mError = "cannot be read";
        } else {
            mBytes = bytes;
            mSize = size;
        }
    }
}

MappedFile::~MappedFile()
{
    if (mBytes != nullptr) (void)munmap(mBytes, mSize);  // can't fail for a whole mapping
}

}  // namespace fonts
