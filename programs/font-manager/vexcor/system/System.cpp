#include "vexcor/system/System.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using plugincore::Failure;
using plugincore::StatusCodes;

namespace vexcor {
namespace {

constexpr uintmax_t kLargestFile = 16U << 20;

[[noreturn]] void Throw(const fs::path& path, const std::string& reason)
{
    throw Failure(StatusCodes::kError, path.string() + ": cannot be read: " + reason);
}

// Returns 0 if `name` isn't a number.
int GetNumber(const std::string& name)
{
    int number = 0;
    const char* const end = name.data() + name.size();
    const auto result = std::from_chars(name.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? number : 0;
}

bool HasOpen(const fs::path& process, const struct stat& wanted)
{
    std::error_code error;
    fs::directory_iterator entry(process / "fd", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        struct stat status = {};
        if (stat(entry->path().c_str(), &status) == 0 && status.st_dev == wanted.st_dev &&
            status.st_ino == wanted.st_ino) {
            return true;
        }
    }
    return false;
}

// The fields of /proc/N/stat that are needed here.
struct ProcessState {
    std::string name;
    char state = 'X';
    int parent = 0;
};

ProcessState ReadState(const fs::path& process)
{
    ProcessState result;
    std::ifstream file(process / "stat");
    std::string line;
    (void)std::getline(file, line);  // the process may have ended
    // The second field is the program's name in parentheses, and may contain parentheses itself.
    const size_t nameStart = line.find('(');
    const size_t nameEnd = line.rfind(')');
    if (nameStart == std::string::npos || nameEnd == std::string::npos) return result;
    result.name = line.substr(nameStart + 1, nameEnd - nameStart - 1);
    std::istringstream fields(line.substr(nameEnd + 1));
    fields >> result.state >> result.parent;
    return result;
}

}  // namespace

std::string GetProgramPath()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) Throw("/proc/self/exe", error.message());
    struct stat own = {};
    struct stat named = {};
    if (stat("/proc/self/exe", &own) != 0 || stat(program.c_str(), &named) != 0 ||
        own.st_ino != named.st_ino || own.st_dev != named.st_dev) {
        throw Failure(StatusCodes::kError,
                      program.string() + ": the program file was removed or replaced");
    }
    return program;
}

std::string ReadSmallFile(const fs::path& file)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found) return {};
    if (error) Throw(file, error.message());
    if (!fs::is_regular_file(status)) Throw(file, "not a file");
    if (fs::file_size(file, error) > kLargestFile) Throw(file, "larger than 16 MiB");
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) Throw(file, std::strerror(errno));
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) Throw(file, std::strerror(errno));
    return bytes;
}

std::vector<int> ListProcessesWithOpenFile(const fs::path& file)
{
    std::vector<int> processes;
    struct stat wanted = {};
    if (stat(file.c_str(), &wanted) != 0) return processes;
    std::error_code error;
    fs::directory_iterator entry("/proc", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const int number = GetNumber(entry->path().filename());
        if (number != 0 && number != getpid() && HasOpen(entry->path(), wanted)) {
            processes.push_back(number);
        }
    }
    return processes;
}

std::vector<ChildProcessName> ListChildren()
{
    std::vector<ChildProcessName> children;
    std::error_code error;
    fs::directory_iterator entry("/proc", error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const int number = GetNumber(entry->path().filename());
        if (number == 0) continue;
        const ProcessState state = ReadState(entry->path());
        const bool hasEnded = state.state == 'Z' || state.state == 'X';
        if (state.parent == getpid() && !hasEnded) children.push_back({number, state.name});
    }
    return children;
}

}  // namespace vexcor
