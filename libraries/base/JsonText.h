#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace base {

// The value as JSON in UTF-8. Bytes of strings that aren't UTF-8 become U+FFFD, where
// nlohmann::json::dump would throw: names and paths come from files and folders of others.
//
// indent   spaces per level; -1 writes all on one line
std::string PrintJson(const nlohmann::json& value, int indent = -1);
std::string PrintJson(const nlohmann::ordered_json& value, int indent = -1);

}  // namespace base
