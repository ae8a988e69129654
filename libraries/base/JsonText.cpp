#include "base/JsonText.h"

namespace base {

std::string PrintJson(const nlohmann::json& value, int indent)
{
    return value.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string PrintJson(const nlohmann::ordered_json& value, int indent)
{
    return value.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace base
