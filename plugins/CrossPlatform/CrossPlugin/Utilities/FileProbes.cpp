#include "FileProbes.h"

#include <sys/stat.h>

namespace CorvantaFileUtils {

bool FileExists(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace CorvantaFileUtils
