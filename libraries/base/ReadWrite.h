#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

// Reads and writes of a given number of bytes. The system may transfer fewer bytes than asked for,
// and a signal may interrupt it; these functions continue until all is done. They block, so the
// descriptor must be a blocking one.
namespace base {

// Writes all of `bytes`. Returns the error of write(2); some of the bytes may be written then.
// Raises SIGPIPE if `descriptor` is a pipe or socket without a reader: use SendAll for sockets.
std::error_code WriteAll(int descriptor, std::string_view bytes);

// Sends all of `bytes` to a socket. Returns the error of send(2), which is EPIPE without a signal
// if the other side has closed it.
std::error_code SendAll(int socket, std::string_view bytes);

// Reads `size` bytes into `buffer`. Returns false if the data ends before that or an error occurs;
// the start of the buffer may be overwritten then.
bool ReadExactly(int descriptor, void* buffer, size_t size);

// Appends to `bytes` until it is `size` bytes long or the data ends. Returns the error of read(2);
// `bytes` holds what was read before it.
std::error_code ReadUpTo(int descriptor, size_t size, std::string& bytes);

}  // namespace base
