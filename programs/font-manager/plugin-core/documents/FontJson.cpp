#include "plugin-core/documents/FontJson.h"

#include <nlohmann/json.hpp>
#include <set>

#include "base/JsonText.h"
#include "base/Plural.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;

namespace plugincore {
namespace {

constexpr const char* kFonts = "DocumentFonts";
constexpr const char* kLinked = "LinkedDocuments";
constexpr const char* kName = "PostScriptName";

Failure MakeJsonFailure(const std::string& reason)
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

// Collects the names as ReadNames does, up to where the text is wrong.
class NameCollector : public nlohmann::json_sax<json> {
public:
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t& text) override
    {
        if (mIsName && !text.empty() && mSeen.insert(text).second) names.push_back(text);
        mIsName = false;
        return true;
    }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(string_t& text) override
    {
        mIsName = text == kName;
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override
    {
        return false;
    }

    std::vector<std::string> names;

private:
    bool mIsName = false;  // the next value is that of a name
    std::set<std::string> mSeen;
};

}  // namespace

Usage ReadUsageWithFontsBeforeCut(const std::string& text)
{
    if (text.size() + 1 < kSmallestCut || json::accept(text)) return ReadUsageWithFonts(text);
    NameCollector collector;
    (void)json::sax_parse(text, &collector);  // false: the text is no JSON
    if (collector.names.empty()) return ReadUsageWithFonts(text);
    LogError("the font list was cut off after " + base::Count(text.size(), "byte") +
             "; used are the " + base::Count(collector.names.size(), "font") + " before that");
    Usage usage;
    usage.fonts = std::move(collector.names);
    return usage;
}

std::vector<std::string> ReadFontNamesBeforeCut(const std::string& text)
{
    return *ReadUsageWithFontsBeforeCut(text).fonts;
}

std::string WriteFontNamesWithin(std::vector<std::string>& names, size_t size)
{
    std::string text = WriteFontNames(names);
    if (text.size() < size) return text;
    const size_t all = names.size();
    const std::string frame = base::PrintJson(json{{kFonts, json::array()}});
    size_t length = frame.size() + 1;  // with the zero byte
    size_t count = 0;
    for (; count < all; ++count) {
        length += base::PrintJson(json{{kName, names[count]}}).size() + (count == 0 ? 0 : 1);
        if (length > size) break;
    }
    if (count == 0) return text;  // the caller reports that the buffer is too small
    names.resize(count);
    LogError("the list of " + base::Count(all, "font") + " is longer than the buffer of " +
             base::Count(size, "byte") + "; used are the first " + std::to_string(count));
    return WriteFontNames(names);
}

Usage ReadUsage(const std::string& text)
{
    const json value = json::parse(text, nullptr, false);
    if (value.is_discarded()) throw MakeJsonFailure("it isn't JSON, or was cut off");
    Usage usage;
    if (value.is_array()) usage.fonts = ReadNames(value);
    if (value.is_array()) return usage;
    if (!value.is_object()) throw MakeJsonFailure("it is neither an object nor an array");
    const auto fonts = value.find(kFonts);
    const auto linked = value.find(kLinked);
    if (fonts != value.end() && !fonts->is_array()) {
        throw MakeJsonFailure("it has no array of fonts");
    }
    if (fonts != value.end()) usage.fonts = ReadNames(*fonts);
    if (linked != value.end() && linked->is_array()) usage.linkedDocuments = ReadPaths(*linked);
    return usage;
}

Usage ReadUsageWithFonts(const std::string& text)
{
    Usage usage = ReadUsage(text);
    if (!usage.fonts) throw MakeJsonFailure("it has no array of fonts");
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
