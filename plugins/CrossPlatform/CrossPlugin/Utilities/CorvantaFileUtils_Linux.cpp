#include "CorvantaFileUtils.h"

#include <sys/stat.h>

#include "TextEncoding_Linux.h"

namespace CorvantaFileUtils {

long GetFileModificationDate(const char* path)
{
    struct stat status;
    if (path == nullptr || !IsUTF8(path) || stat(path, &status) != 0) return 0;
    return static_cast<long>(status.st_mtim.tv_sec);
}

}  // namespace CorvantaFileUtils
