#include "CorvantaFileUtils.h"

#include <sys/stat.h>

#include <nlohmann/json.hpp>

namespace CorvantaFileUtils {

namespace {

// The strict dump of a JSON string refuses exactly what isn't UTF-8.
bool IsUTF8(const char* text)
{
    try {
        (void)nlohmann::json(text).dump();
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}

}  // namespace

long GetFileModificationDate(const char* path)
{
    struct stat status;
    if (path == nullptr || !IsUTF8(path) || stat(path, &status) != 0) return 0;
    return static_cast<long>(status.st_mtim.tv_sec);
}

}  // namespace CorvantaFileUtils
