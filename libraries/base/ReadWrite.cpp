#include "base/ReadWrite.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace base {

namespace {

std::error_code GetLastError() { return {errno, std::generic_category()}; }

// `transfer(done)` handles the bytes from position `done` on. Stops at `size` bytes, an error, or a
// transfer of 0 bytes, and gives the number of bytes in `done`.
template <class Transfer>
std::error_code TransferAll(size_t size, size_t& done, Transfer transfer)
{
    while (done < size) {
        const ssize_t count = transfer(done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return GetLastError();
        if (count == 0) break;
        done += static_cast<size_t>(count);
    }
    return {};
}

// A device that accepts no bytes and reports no error would otherwise pass for a full write.
std::error_code RequireAll(std::error_code error, size_t size, size_t done)
{
    if (!error && done < size) return std::make_error_code(std::errc::io_error);
    return error;
}

}  // namespace

std::error_code WriteAll(int descriptor, std::string_view bytes)
{
    size_t done = 0;
    const std::error_code error = TransferAll(bytes.size(), done, [&](size_t position) {
        return write(descriptor, bytes.data() + position, bytes.size() - position);
    });
    return RequireAll(error, bytes.size(), done);
}

std::error_code SendAll(int socket, std::string_view bytes)
{
    size_t done = 0;
    const std::error_code error = TransferAll(bytes.size(), done, [&](size_t position) {
        return send(socket, bytes.data() + position, bytes.size() - position, MSG_NOSIGNAL);
    });
    return RequireAll(error, bytes.size(), done);
}

bool ReadExactly(int descriptor, void* buffer, size_t size)
{
    auto* const target = static_cast<char*>(buffer);
    size_t done = 0;
    const std::error_code error = TransferAll(size, done, [&](size_t position) {
        return read(descriptor, target + position, size - position);
    });
    return !error && done == size;
}

std::error_code ReadUpTo(int descriptor, size_t size, std::string& bytes)
{
    size_t done = bytes.size();
    if (done >= size) return {};
    bytes.resize(size);
    const std::error_code error = TransferAll(size, done, [&](size_t position) {
        return read(descriptor, &bytes[position], size - position);
    });
    bytes.resize(done);
    return error;
}

}  // namespace base
