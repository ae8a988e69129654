#include "base/Files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
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

std::string FindProgram(const std::string& name)
{
    const char* const path = std::getenv("PATH");
    std::string rest = path == nullptr ? "" : path;
    while (!rest.empty()) {
        const size_t end = std::min(rest.find(':'), rest.size());
        std::string program = rest.substr(0, end) + "/" + name;
        rest.erase(0, end + 1);
        if (program.front() == '/' && access(program.c_str(), X_OK) == 0) return program;
    }
    return {};
}

}  // namespace base
