#include "GJSONUtils.h"

unsigned int GJSONUtils::Parse(const std::string& text, json& value)
{
    try {
        value = json::parse(text);
    } catch (...) {
        CHECK_CORE_CALL("Miscellaneous", 1, CoreErrorCodes::kInvalidParam);
    }
    return CoreErrorCodes::kSuccess;
}
