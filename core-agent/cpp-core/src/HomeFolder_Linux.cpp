#include "HomeFolder_Linux.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

std::string GetHomeFolder(const std::string& userName)
{
    if (userName.empty()) {
        const char* const home = std::getenv("HOME");
        if (home != nullptr && home[0] != 0) return home;
    }
    std::vector<char> buffer(1024);
    for (;;) {
        passwd entry = {};
        passwd* found = nullptr;
        const int error =
            userName.empty()
                ? getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found)
                : getpwnam_r(userName.c_str(), &entry, buffer.data(), buffer.size(), &found);
        if (error == ERANGE) {
            buffer.resize(buffer.size() * 2);
            continue;
        }
        if (found == nullptr || entry.pw_dir == nullptr) return std::string();
        return entry.pw_dir;
    }
}
