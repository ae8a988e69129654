#pragma once

#include <system_error>
#include <utility>

namespace base {

// Owns a file descriptor; -1 is none. Movable, not copyable.
class FileDescriptor {
public:
    // Takes ownership of `descriptor`, as open(2) or socket(2) returned it.
    explicit FileDescriptor(int descriptor = -1) : mDescriptor(descriptor) {}

    // Closes the descriptor and ignores errors: a writer that needs to know calls Close first.
    ~FileDescriptor();

    FileDescriptor(FileDescriptor&& other) noexcept
        : mDescriptor(std::exchange(other.mDescriptor, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(mDescriptor, other.mDescriptor);
        return *this;
    }

    int Get() const { return mDescriptor; }
    bool IsValid() const { return mDescriptor >= 0; }

    // Returns the descriptor, which the caller owns from now on.
    int Release() { return std::exchange(mDescriptor, -1); }

    // Closes the descriptor. Returns the error of close(2), with which written data can be lost;
    // the descriptor is gone all the same. Without a descriptor it does nothing and returns no
    // error.
    std::error_code Close();

private:
    int mDescriptor;
};

}  // namespace base
