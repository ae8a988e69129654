#pragma once

#include <exception>
#include <memory>
#include <string>

// A string object of the platform, as the expansion of paths needs one. Each operation may throw
// GPlatformException in the place of the platform's own exception.
class GPlatformString {
public:
    virtual ~GPlatformString() = default;

    // Null for text that isn't UTF-8.
    static std::unique_ptr<GPlatformString> MakeFromUTF8(const char* text);
    // Any bytes will do.
    static std::unique_ptr<GPlatformString> MakeFromMacRoman(const char* text);

    // With a leading tilde expanded, in the form that file system calls take.
    virtual std::string GetExpandedFileSystemRepresentation() const = 0;
};

// what() is the platform's description.
class GPlatformException : public std::exception {
public:
    explicit GPlatformException(const std::string& description) : mDescription(description) {}
    const char* what() const noexcept override { return mDescription.c_str(); }

private:
    std::string mDescription;
};
