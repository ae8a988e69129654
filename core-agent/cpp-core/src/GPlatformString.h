#pragma once

#include <exception>
#include <memory>
#include <string>

// A string object of the platform, which knows how to expand paths.
//
// Texts are zero-terminated and copied. Each operation may throw GPlatformException, into which the
// platform's own exceptions are converted. [any thread, one object on one thread at a time]
class GPlatformString {
public:
    virtual ~GPlatformString() = default;

    // Returns null for text that isn't UTF-8.
    static std::unique_ptr<GPlatformString> MakeFromUTF8(const char* text);
    // Accepts any bytes, since each one is a MacRoman character.
    static std::unique_ptr<GPlatformString> MakeFromMacRoman(const char* text);

    // Returns the text with a leading tilde expanded, in the form that file system calls take.
    virtual std::string GetExpandedFileSystemRepresentation() const = 0;
};

// Thrown in place of the platform's own exception; what() is that exception's description.
class GPlatformException : public std::exception {
public:
    explicit GPlatformException(const std::string& description) : mDescription(description) {}
    const char* what() const noexcept override { return mDescription.c_str(); }

private:
    std::string mDescription;
};
