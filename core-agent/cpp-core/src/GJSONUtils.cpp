#include "GJSONUtils.h"

namespace {

constexpr int kSyntaxError = 101;  // the JSON library's number

// Returns the place of the quotation mark that ends the string, or of the zero byte that ends the
// text. Each text is searched before it is parsed, so this must be fast.
//
// at   the place behind the first quotation mark
size_t FindStringEnd(const std::string& text, size_t at)
{
    for (; text[at] != '"' && text[at] != '\0'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
    }
    return at;
}

// Throws if the text is nested too deep. Leaves every other error to the library, so brackets
// needn't match; like the library, ends at a zero byte.
void CheckNesting(const std::string& text)
{
    size_t depth = 0;
    for (size_t index = 0;; ++index) {
        switch (text[index]) {
            case '\0':
                return;
            case '"':
                index = FindStringEnd(text, index + 1);
                if (text[index] == '\0') return;
                break;
            case '[':
            case '{':
                if (++depth <= GJSONUtils::kMaximumNesting) break;
                throw json::parse_error::create(kSyntaxError, index + 1, "nested too deep");
            case ']':
            case '}':
                if (depth > 0) --depth;
                break;
            default:
                break;
        }
    }
}

}  // namespace

json GJSONUtils::ParseOrThrow(const std::string& text)
{
    CheckNesting(text);
    return json::parse(text);
}

void GJSONUtils::Clear(json& value) noexcept
{
    if (!value.is_structured()) return;
    for (json& element : value) Clear(element);
    value.clear();
}

unsigned int GJSONUtils::Parse(const std::string& text, json& value)
{
    try {
        value = ParseOrThrow(text);
    } catch (...) {
        CHECK_CORE_CALL("Miscellaneous", 1, CoreErrorCodes::kInvalidParam);
    }
    return CoreErrorCodes::kSuccess;
}
