#include "TextEncoding_Linux.h"

#include <nlohmann/json.hpp>

bool IsUTF8(const std::string& text)
{
    try {
        // The strict dump refuses exactly what isn't UTF-8; its text isn't wanted.
        (void)nlohmann::json(text).dump();
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}
