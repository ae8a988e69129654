#include "base/FileDescriptor.h"

#include <unistd.h>

#include <cerrno>

namespace base {

FileDescriptor::~FileDescriptor() { (void)Close(); }

std::error_code FileDescriptor::Close()
{
    if (!IsValid()) return {};
    // Linux frees the descriptor even if close is interrupted: a second call could close another's.
    const int result = close(std::exchange(mDescriptor, -1));
    return result == 0 ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace base
