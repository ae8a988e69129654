#include "base/Files.h"

#include <unistd.h>

#include <system_error>

#include "base/Strings.h"

namespace base {

bool IsReadableFile(const std::filesystem::path& path)
{
    std::error_code ignored;  // what can't be looked at can't be read either
    return std::filesystem::is_regular_file(path, ignored) && access(path.c_str(), R_OK) == 0;
}

std::string GetLowerExtension(const std::filesystem::path& path)
{
    return ToLower(path.extension().native());
}

}  // namespace base
