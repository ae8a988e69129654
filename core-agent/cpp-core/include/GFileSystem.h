#pragma once

#include <string>

#include "CoreErrorCodes.h"
#include "GFileSystemSpec.h"

// Operations on paths that depend on the operating system.
//
// A path is a UTF-8 byte string with "/" between its components. No operation looks whether a file
// exists. Stateless; failures are written to the log. [any thread]
class GFileSystem {
public:
    static constexpr unsigned int kFileNotFound = MakeErrorCode(1, 0x1005);
    static constexpr unsigned int kDirectoryNotFound = MakeErrorCode(2, 0x1005);
    static constexpr unsigned int kCouldNotDecodeInput = MakeErrorCode(3, 0x1005);
    static constexpr unsigned int kFileOrDirectoryAlreadyExists = MakeErrorCode(4, 0x1005);
    static constexpr unsigned int kInvalidPath = MakeErrorCode(5, 0x1005);
    static constexpr unsigned int kDirectoryNotEmpty = MakeErrorCode(6, 0x1005);
    static constexpr unsigned int kEnumFolderContentsCanceled = MakeErrorCode(7, 0x1005);
    static constexpr unsigned int kDirectoryFull = MakeErrorCode(8, 0x1005);
    static constexpr unsigned int kDiskFull = MakeErrorCode(9, 0x1005);
    static constexpr unsigned int kFileIsLocked = MakeErrorCode(10, 0x1005);
    static constexpr unsigned int kMoveFailed = MakeErrorCode(11, 0x1005);
    static constexpr unsigned int kInvalidCharacterForFileSystemRepresentation =
        MakeErrorCode(12, 0x1005);

    // Returns "/".
    static std::string OSGetPathSeparator();

    // Returns true if the path doesn't begin with the separator. An empty path is partial.
    static bool OSIsPartialPath(const std::string& path);

    // Returns true if the path begins with the separator, and then removes trailing separators from
    // it. "/" remains "/", but "//" becomes the empty path.
    static bool OSIsValidFullPath(std::string& path);

    // Returns the working directory; empty if it can't be determined or its path exceeds 1,023
    // bytes.
    static GFileSystemSpec OSGetCWD();

    // Replaces a leading "~" ($HOME or the user database) or "~user" by the home folder and
    // converts the path to what file system calls take. Text that isn't UTF-8 is decoded as
    // MacRoman, with a warning in the log.
    //
    // Returns 0 or kInvalidCharacterForFileSystemRepresentation, with `path` unchanged. An unknown
    // user is not an error: the path remains as it is.
    static unsigned int OSExpandPath(std::string& path);
};
