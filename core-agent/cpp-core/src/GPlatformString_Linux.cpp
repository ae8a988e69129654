#include "GPlatformString.h"

#include "HomeFolder_Linux.h"
#include "MacRoman.h"
#include "Utf8Check.h"

namespace {

// Holds UTF-8, which both factory functions produce.
class LinuxString : public GPlatformString {
public:
    explicit LinuxString(const std::string& text) : mText(text) {}

    std::string GetExpandedFileSystemRepresentation() const override
    {
        if (mText.empty() || mText[0] != '~') return mText;
        const size_t end = mText.find('/');
        std::string home = GetHomeFolder(mText.substr(1, end == std::string::npos ? end : end - 1));
        if (home.empty()) return mText;
        const std::string rest = end == std::string::npos ? std::string() : mText.substr(end);
        // The rest begins with a separator, so that of a home like "/home/user/" is one too many.
        while (!rest.empty() && !home.empty() && home.back() == '/') home.pop_back();
        return home + rest;
    }

private:
    std::string mText;
};

}  // namespace

std::unique_ptr<GPlatformString> GPlatformString::MakeFromUTF8(const char* text)
{
    if (!IsValidUtf8(text)) return nullptr;
    return std::make_unique<LinuxString>(text);
}

std::unique_ptr<GPlatformString> GPlatformString::MakeFromMacRoman(const char* text)
{
    return std::make_unique<LinuxString>(DecodeMacRoman(text));
}
