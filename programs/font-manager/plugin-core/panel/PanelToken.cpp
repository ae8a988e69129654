#include "plugin-core/panel/PanelToken.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "base/DraftFile.h"
#include "base/FileDescriptor.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

constexpr size_t kDigits = 64;

[[noreturn]] void ThrowTokenFault(const fs::path& file, const char* what,
                                  const std::error_code& error)
{
    throw Failure(StatusCodes::kError, file.string() + ": " + what + ": " + error.message());
}

std::error_code GetLastError() { return {errno, std::generic_category()}; }

bool IsToken(const std::string& text)
{
    return text.size() == kDigits && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

// Returns "" if there is no valid token that only this user can have read or written. Doesn't block
// if the path is a FIFO.
std::string Load(const fs::path& file)
{
    const base::FileDescriptor opened(
        open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!opened.IsValid() || fstat(opened.Get(), &status) != 0) return {};
    const bool isOurs = S_ISREG(status.st_mode) && status.st_uid == geteuid() &&
                        (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    if (!isOurs) return {};
    std::array<char, kDigits + 1> text;
    const ssize_t count = read(opened.Get(), text.data(), text.size());
    const std::string token(text.data(), count > 0 ? static_cast<size_t>(count) : 0);
    return IsToken(token) ? token : std::string();
}

std::string MakeToken(const fs::path& file)
{
    std::array<unsigned char, kDigits / 2> bytes;
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        ThrowTokenFault(file, "no random numbers for the panel's token", GetLastError());
    }
    constexpr const char* kHex = "0123456789abcdef";
    std::string token;
    for (const unsigned char byte : bytes) {
        token += kHex[byte >> 4];
        token += kHex[byte & 15];
    }
    return token;
}

}  // namespace

std::string LoadOrMakePanelToken(const fs::path& file)
{
    std::string token = Load(file);
    if (!token.empty()) return token;
    std::error_code error;
    const fs::path folder = file.parent_path();
    const bool isNew = fs::create_directories(folder, error);
    if (error) ThrowTokenFault(folder, "cannot be created", error);
    if (isNew && chmod(folder.c_str(), S_IRWXU) != 0) {
        ThrowTokenFault(folder, "cannot be closed to other users", GetLastError());
    }
    token = MakeToken(file);
    base::DraftFile draft(file.string() + ".XXXXXX");
    error = draft.Write(token);
    if (error) ThrowTokenFault(file, "cannot be written", error);
    // A link fails if the file exists: of two processes that start at the same time, both use the
    // token of the first.
    if (!draft.LinkTo(file)) return token;
    std::string present = Load(file);
    if (!present.empty()) return present;
    error = draft.MoveTo(file);
    if (error) ThrowTokenFault(file, "cannot be replaced", error);
    return token;
}

bool IsSameToken(const std::string& left, const std::string& right)
{
    if (left.size() != right.size()) return false;
    unsigned int difference = 0;
    for (size_t position = 0; position < left.size(); ++position) {
        difference |= static_cast<unsigned int>(left[position] ^ right[position]);
    }
    return difference == 0;
}

}  // namespace plugincore
