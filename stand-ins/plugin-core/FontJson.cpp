#include "FontJson.h"

#include <nlohmann/json.hpp>
#include <set>

#include "StatusCodes.h"

using nlohmann::json;

namespace plugincore {
namespace {

constexpr const char* kFonts = "DocumentFonts";
constexpr const char* kName = "PostScriptName";

Failure MakeFailure(const std::string& reason)
{
    return {StatusCodes::kInvalidParam, "the font list that came in is left aside: " + reason};
}

}  // namespace

std::vector<std::string> ReadFontNames(const std::string& text)
{
    const json value = json::parse(text, nullptr, false);
    if (value.is_discarded()) throw MakeFailure("it isn't JSON, or was cut off");
    const json* array = &value;
    if (value.is_object() && value.find(kFonts) != value.end()) array = &value.at(kFonts);
    if (!array->is_array()) throw MakeFailure("it has no array of fonts");
    std::vector<std::string> names;
    std::set<std::string> seen;
    for (const json& entry : *array) {
        if (!entry.is_object()) continue;
        const auto member = entry.find(kName);
        if (member == entry.end() || !member->is_string()) continue;
        const auto name = member->get<std::string>();
        if (!name.empty() && seen.insert(name).second) names.push_back(name);
    }
    return names;
}

std::string WriteFontNames(const std::vector<std::string>& names)
{
    if (names.empty()) return {};
    json array = json::array();
    for (const std::string& name : names) array.push_back({{kName, name}});
    return json{{kFonts, array}}.dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace plugincore
