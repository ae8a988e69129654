#include "GJSONUtils.h"

namespace {

constexpr int kSyntaxError = 101;  // the JSON library's number

// Throws if the text is nested too deep. Leaves every other error to the library, so brackets
// needn't match; like the library, ends at a zero byte.
void CheckNesting(const std::string& text)
{
    size_t depth = 0;
    bool isInString = false;
    for (size_t index = 0; index < text.size() && text[index] != '\0'; ++index) {
        const char c = text[index];
        if (isInString && c == '\\') {
            ++index;
        } else if (c == '"') {
            isInString = !isInString;
        } else if (!isInString && (c == '[' || c == '{')) {
            if (++depth <= GJSONUtils::kMaximumNesting) continue;
            throw json::parse_error::create(kSyntaxError, index + 1, "nested too deep");
        } else if (!isInString && (c == ']' || c == '}') && depth > 0) {
            --depth;
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
