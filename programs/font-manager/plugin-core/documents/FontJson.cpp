#include "plugin-core/documents/FontJson.h"

#include <nlohmann/json.hpp>
#include <set>

#include "base/JsonText.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;

namespace plugincore {
namespace {

constexpr const char* kFonts = "DocumentFonts";
constexpr const char* kLinked = "LinkedDocuments";
constexpr const char* kName = "PostScriptName";

Failure MakeFailure(const std::string& reason)
{
    return {StatusCodes::kInvalidParam, "the font list that came in is ignored: " + reason};
}

// The caller's list is taken as far as it makes sense: one entry of another form doesn't cost the
// document its other fonts.
std::vector<std::string> ReadNames(const json& array)
{
    std::vector<std::string> names;
    std::set<std::string> seen;
    for (const json& entry : array) {
        if (!entry.is_object()) continue;
        const auto member = entry.find(kName);
        if (member == entry.end() || !member->is_string()) continue;
        const auto name = member->get<std::string>();
        if (!name.empty() && seen.insert(name).second) names.push_back(name);
    }
    return names;
}

std::vector<std::string> ReadPaths(const json& array)
{
    std::vector<std::string> paths;
    for (const json& entry : array) {
        if (entry.is_string() && !entry.get_ref<const std::string&>().empty()) {
            paths.push_back(entry.get<std::string>());
        }
    }
    return paths;
}

}  // namespace

Usage ReadUsage(const std::string& text)
{
    const json value = json::parse(text, nullptr, false);
    if (value.is_discarded()) throw MakeFailure("it isn't JSON, or was cut off");
    Usage usage;
    if (value.is_array()) usage.fonts = ReadNames(value);
    if (value.is_array()) return usage;
    if (!value.is_object()) throw MakeFailure("it is neither an object nor an array");
    const auto fonts = value.find(kFonts);
    const auto linked = value.find(kLinked);
    if (fonts != value.end() && !fonts->is_array()) throw MakeFailure("it has no array of fonts");
    if (fonts != value.end()) usage.fonts = ReadNames(*fonts);
    if (linked != value.end() && linked->is_array()) usage.linkedDocuments = ReadPaths(*linked);
    return usage;
}

Usage ReadUsageWithFonts(const std::string& text)
{
    Usage usage = ReadUsage(text);
    if (!usage.fonts) throw MakeFailure("it has no array of fonts");
    return usage;
}

std::vector<std::string> ReadFontNames(const std::string& text)
{
    return *ReadUsageWithFonts(text).fonts;
}

std::string WriteFontNames(const std::vector<std::string>& names)
{
    if (names.empty()) return {};
    json array = json::array();
    for (const std::string& name : names) array.push_back({{kName, name}});
    return base::PrintJson(json{{kFonts, array}});
}

}  // namespace plugincore
