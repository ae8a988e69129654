#include "TextEncoding_Linux.h"

#include <nlohmann/json.hpp>

bool IsUTF8(const std::string& text)
{
    try {
        // With the strict error handler, dump() throws exactly for text that isn't UTF-8.
        (void)nlohmann::json(text).dump();
        return true;
    } catch (const nlohmann::json::type_error&) {
        return false;
    }
}
