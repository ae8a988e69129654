#pragma once

#include <string>

#include "AIAutoBuffer.h"
#include "HostTypes.h"

namespace ai {

// A host string, held by its one reference; null is the empty string. The object crosses the
// boundary by address, so it has one pointer and no virtual operations. Movable, not copyable.
//
// Everything that calls the host throws ai::Error with the host's code when that isn't 0.
class UnicodeString {
public:
    using Buffer = AutoBuffer<char, unsigned long, SPAlloc>;

    UnicodeString() = default;

    // A null `text` makes a null string and calls nothing.
    UnicodeString(const char* text, AICharacterEncoding encoding);
    UnicodeString(UnicodeString&& other) noexcept { swap(other); }
    UnicodeString& operator=(UnicodeString&& other) noexcept
    {
        swap(other);
        return *this;
    }
    UnicodeString(const UnicodeString&) = delete;
    UnicodeString& operator=(const UnicodeString&) = delete;

    // A string that outlives the suite leaks: there is nothing left to free it with.
    ~UnicodeString();

    static UnicodeString FromUTF8(const char* text);

    // Fills `buffer` and returns the number of bytes.
    unsigned long getAs(AICharacterEncoding encoding, Buffer& buffer) const;

    // Exactly the bytes that the host gave, embedded zero bytes included.
    std::string getInStdString(AICharacterEncoding encoding) const;
    std::string as_UTF8() const;

    void swap(UnicodeString& other) noexcept;

private:
    void* mImpl = nullptr;
};

}  // namespace ai
