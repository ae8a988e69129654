#pragma once

#include <string>

#include "AIAutoBuffer.h"
#include "HostTypes.h"

namespace ai {

// Owns a reference to a string of the host; null is the empty string. The object crosses the
// boundary by address, so it consists of one pointer and has no virtual operations. Can be moved
// but not copied. [main-thread]
//
// Members that call the host throw ai::Error with the host's code if the call fails.
class UnicodeString {
public:
    using Buffer = AutoBuffer<char, unsigned long, SPAlloc>;

    UnicodeString() = default;

    // Creates a host string from zero-terminated text. A null `text` gives the null string without
    // calling the host.
    UnicodeString(const char* text, AICharacterEncoding encoding);
    UnicodeString(UnicodeString&& other) noexcept { swap(other); }
    UnicodeString& operator=(UnicodeString&& other) noexcept
    {
        swap(other);
        return *this;
    }
    UnicodeString(const UnicodeString&) = delete;
    UnicodeString& operator=(const UnicodeString&) = delete;

    // Frees the string, unless it is null. Never throws. A string that outlives the suite leaks,
    // because it can't be freed any more.
    ~UnicodeString();

    // Creates a host string from zero-terminated UTF-8; null gives the null string.
    static UnicodeString FromUTF8(const char* text);

    // Converts the string into `buffer`, whose old block is freed, and returns the number of bytes.
    // There is no zero byte at the end.
    unsigned long getAs(AICharacterEncoding encoding, Buffer& buffer) const;

    // Returns exactly the bytes that the host gave, embedded zero bytes included.
    std::string getInStdString(AICharacterEncoding encoding) const;

    // The same in UTF-8.
    std::string as_UTF8() const;

    void swap(UnicodeString& other) noexcept;

private:
    void* mImpl = nullptr;
};

}  // namespace ai
