#include "plugin-core/panel/PanelToken.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "plugin-core/panel/PanelSocket.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

constexpr size_t kDigits = 64;

[[noreturn]] void Throw(const fs::path& file, const char* what)
{
    throw Failure(StatusCodes::kError,
                  file.string() + ": " + what + ": " + std::generic_category().message(errno));
}

bool IsToken(const std::string& text)
{
    return text.size() == kDigits && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

// Empty if there is no file, or one that others may have written or read. Never waits, whatever
// kind of file it is.
std::string Load(const fs::path& file)
{
    const Descriptor opened(open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
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
        Throw(file, "no random numbers for the panel's token");
    }
    constexpr const char* kHex = "0123456789abcdef";
    std::string token;
    for (const unsigned char byte : bytes) {
        token += kHex[byte >> 4];
        token += kHex[byte & 15];
    }
    return token;
}

// A file beside the one that is meant; gone at the end, whatever becomes of it.
class Draft {
public:
    Draft(const fs::path& file, const std::string& text) : mPath(file.string() + ".XXXXXX")
    {
        const Descriptor made(mkstemp(mPath.data()));  // mode 600
        if (!made.IsValid()) Throw(file, "cannot be written");
        if (write(made.Get(), text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
            (void)unlink(mPath.c_str());  // the failure that led here is told
            Throw(file, "cannot be written");
        }
    }
    ~Draft() { (void)unlink(mPath.c_str()); }  // isn't there any more if it was renamed
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    const char* GetPath() const { return mPath.c_str(); }

private:
    std::string mPath;
};

}  // namespace

std::string LoadOrMakePanelToken(const fs::path& file)
{
    std::string token = Load(file);
    if (!token.empty()) return token;
    std::error_code error;
    const fs::path folder = file.parent_path();
    const bool isNew = fs::create_directories(folder, error);
    if (error) throw Failure(StatusCodes::kError, folder.string() + ": " + error.message());
    if (isNew && chmod(folder.c_str(), S_IRWXU) != 0) Throw(folder, "cannot be closed to others");
    token = MakeToken(file);
    const Draft draft(file, token);
    // Of two processes that begin at the same moment the first one's token serves both.
    if (link(draft.GetPath(), file.c_str()) == 0) return token;
    std::string present = Load(file);
    if (!present.empty()) return present;
    if (rename(draft.GetPath(), file.c_str()) != 0) Throw(file, "cannot be put in place");
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
