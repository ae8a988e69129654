#include "plugin-core/storage/AtomicFile.h"

#include <sys/stat.h>

#include <optional>
#include <system_error>

#include "base/DraftFile.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

void ThrowIf(const std::error_code& error, const fs::path& file)
{
    if (!error) return;
    throw Failure(StatusCodes::kError, file.string() + ": cannot be written: " + error.message());
}

std::optional<mode_t> GetPermissions(const fs::path& file)
{
    struct stat status = {};
    if (stat(file.c_str(), &status) != 0) return std::nullopt;
    return status.st_mode & 07777;
}

}  // namespace

void WriteFileAtomically(const fs::path& file, const std::string& bytes)
{
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    ThrowIf(error, file.parent_path());
    // The rename would replace a link by a file.
    const fs::path target = fs::is_symlink(file, error) ? fs::canonical(file, error) : file;
    if (target.empty()) ThrowIf(error, file);
    base::DraftFile draft(target.string() + ".XXXXXX");
    ThrowIf(draft.Write(bytes, GetPermissions(target)), file);
    ThrowIf(draft.MoveTo(target), file);
}

}  // namespace plugincore
