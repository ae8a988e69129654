#pragma once

#include <string>

#include "CoreErrorCodes.h"
#include "GFileSystemSpec.h"

// What the operating system says about paths: UTF-8 byte strings with "/" between the components.
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

    static std::string OSGetPathSeparator();

    // True for a path that is empty or doesn't begin with the separator.
    static bool OSIsPartialPath(const std::string& path);

    // True for a full path, which then loses its trailing separators; the root keeps its own.
    static bool OSIsValidFullPath(std::string& path);

    // Empty when the working directory can't be told, which is reported.
    static GFileSystemSpec OSGetCWD();

    // A leading tilde becomes the home folder, and the text what file system calls take. Text that
    // isn't UTF-8 is taken as MacRoman, with a warning in the log. A failure is reported, leaves
    // the path, and gives kInvalidCharacterForFileSystemRepresentation.
    static unsigned int OSExpandPath(std::string& path);
};
