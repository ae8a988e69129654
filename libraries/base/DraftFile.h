#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/FileDescriptor.h"

namespace base {

// A temporary file that takes the place of another one in one step, so that a reader sees the old
// bytes or the new ones and never a part. Use it in this order:
//
//     DraftFile draft(target + ".XXXXXX");
//     std::error_code error = draft.Write(bytes, mode);
//     if (!error) error = draft.MoveTo(target);
//
// Not thread-safe.
class DraftFile {
public:
    // Creates the file, with mode 0600 and opened for writing.
    //
    // pattern   its path, whose last six characters must be XXXXXX: a unique name replaces them.
    // The folder must be on the file system of the target.
    // A failure is reported by Write.
    explicit DraftFile(std::string pattern);

    // Deletes the file unless MoveTo succeeded.
    ~DraftFile();

    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;

    // Writes the start of the file, for one that is too large for memory: Write writes its end.
    // Returns the first error, which may be that of the creation.
    std::error_code Append(std::string_view bytes);

    // Writes `bytes`, sets the permissions to `mode` if it is given (the umask isn't applied),
    // waits until all is on the disk and closes the file. To be called once. Returns the first
    // error, which may be that of the creation.
    std::error_code Write(std::string_view bytes, std::optional<mode_t> mode = std::nullopt);

    // Renames the file to `target` and replaces what has this name; a symbolic link is replaced and
    // not followed. On failure `target` is unchanged.
    std::error_code MoveTo(const std::string& target);

    // Gives the file the second name `target`. Returns EEXIST if that exists. The destructor
    // deletes the temporary name only.
    std::error_code LinkTo(const std::string& target) const;

private:
    std::string mPath;  // empty if there is no file to delete
    FileDescriptor mFile;
    std::error_code mCreationError;
};

// Waits until the entries of `folder` are on the disk. Without this a file that was moved there can
// be lost if the power fails; the old file is back then. Errors are ignored: not every file system
// can do it.
void SyncFolder(const std::string& folder);

}  // namespace base
