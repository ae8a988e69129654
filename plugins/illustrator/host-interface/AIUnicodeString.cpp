#include "AIUnicodeString.h"

#include <cstring>
#include <utility>

#include "AIError.h"
#include "DropExceptions.h"
#include "SuiteGlobals.h"

namespace ai {

UnicodeString::UnicodeString(const char* text, AICharacterEncoding encoding)
{
    if (text == nullptr) return;
    check_ai_error(
        check_suite(sAIUnicodeString)->Initialize(this, text, std::strlen(text), encoding));
}

UnicodeString::~UnicodeString()
{
    // A destructor can't report a failure.
    if (mImpl == nullptr || sAIUnicodeString == nullptr) return;
    DropExceptions([this] { (void)sAIUnicodeString->Destroy(this); });
}

UnicodeString UnicodeString::FromUTF8(const char* text)
{
    return UnicodeString(text, kAIUTF8CharacterEncoding);
}

unsigned long UnicodeString::getAs(AICharacterEncoding encoding, Buffer& buffer) const
{
    unsigned long count = 0;
    check_ai_error(check_suite(sAIUnicodeString)->GetAs(*this, encoding, buffer, &count));
    return count;
}

std::string UnicodeString::getInStdString(AICharacterEncoding encoding) const
{
    Buffer buffer;
    const unsigned long count = getAs(encoding, buffer);
    return count > 0 ? std::string(buffer.GetBuffer(), count) : std::string();
}

std::string UnicodeString::as_UTF8() const { return getInStdString(kAIUTF8CharacterEncoding); }

void UnicodeString::swap(UnicodeString& other) noexcept { std::swap(mImpl, other.mImpl); }

}  // namespace ai
