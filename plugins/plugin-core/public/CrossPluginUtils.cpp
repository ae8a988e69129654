#include "CrossPluginUtils.h"

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "DebugUtils.h"
#include "GJSONUtils.h"

namespace {

constexpr char kPostScriptName[] = "PostScriptName";

const std::string& GetName(const SFontRecord& record)
{
    static const std::string sEmpty;
    const auto found = record.find(kPostScriptName);
    return found != record.end() ? found->second : sEmpty;
}

// Walks the list for each font of a document, so a record's name is compared where it is, without
// a search for its key.
bool HasFontWithName(const FontList& fonts, const std::string& name)
{
    for (const SFontRecord& font : fonts) {
        if (font.size() == 1 && !name.empty()) {
            const auto& only = *font.begin();
            if (only.second == name && only.first == kPostScriptName) return true;
        } else if (GetName(font) == name) {
            return true;
        }
    }
    return false;
}

const char* TextOrNull(const char* text) { return text != nullptr ? text : "NULL"; }

// Indexing an array by a string throws, so no array form of the settings works: this always ends
// in the caller's "Could not parse" trace.
int GetSettingFromArray(const json& settings, const char* key, int* value)
{
    if (!settings[key].is_null()) return -1;
    *value = settings[key].get<int>();
    return 0;
}

int GetSettingFromObject(const json& settings, const char* key, int* value)
{
    try {
        if (key == nullptr) throw std::invalid_argument("no key");
        const std::string text = settings.at(std::string(key)).get<std::string>();
        *value = static_cast<int32_t>(std::strtol(text.c_str(), nullptr, 10));
        return 0;
    } catch (const std::exception&) {
        OutputIndentedAndFormattedString(0, "%s() could not find key '%s'", "GetSettingFromObject",
                                         TextOrNull(key));
        return -1;
    }
}

}  // namespace

void to_json(json& target, const SFontRecord& record)
{
    target = json::object();
    for (const auto& pair : record) target[pair.first] = pair.second;
}

namespace CrossPluginUtils {

void CreateFontDataForOneFont(std::string name, SFontRecord& record)
{
    OutputIndentedAndFormattedString(1, "Entering %s('%s')", "CreateFontDataForOneFont",
                                     name.c_str());
    std::string& stored = record[kPostScriptName];
    stored = std::move(name);
    OutputIndentedAndFormattedString(-1, "%s() returning '%s'", "CreateFontDataForOneFont",
                                     stored.c_str());
}

bool AddFontToArray(SFontRecord record, bool checkForDuplicates, FontList& fonts)
{
    if (checkForDuplicates && !fonts.empty()) {
        // Indexing adds an empty name to a record without one, so such records equal each other.
        const std::string& name = record[kPostScriptName];
        if (HasFontWithName(fonts, name)) return false;
    }
    fonts.push_back(std::move(record));
    return true;
}

std::string JSONStringRepresentation(const FontList& fonts,
                                     const std::vector<std::string>& linkedDocuments)
{
    json report = json::object();
    const GJSONScope scope(report);
    json documentFonts = json::array();
    for (const SFontRecord& font : fonts) documentFonts.push_back(json(font));
    report["DocumentFonts"] = std::move(documentFonts);
    json linked = json::array();
    for (const std::string& path : linkedDocuments) linked.push_back(path);
    report["LinkedDocuments"] = std::move(linked);
    return report.dump();
}

int GetSettingFromJSONBuffer(const char* buffer, const char* key, int* value)
{
    try {
        json settings = GJSONUtils::ParseOrThrow(buffer != nullptr ? buffer : "");
        const GJSONScope scope(settings);
        if (settings.is_array()) return GetSettingFromArray(settings, key, value);
        if (settings.is_object()) return GetSettingFromObject(settings, key, value);
        if (settings.is_string()) {
            OutputIndentedAndFormattedString(0, "What is this? '%s'",
                                             settings.get_ref<const std::string&>().c_str());
        }
    } catch (const std::exception&) {
        OutputIndentedAndFormattedString(0, "Could not parse '%s'", TextOrNull(buffer));
    }
    return -1;
}

void BackgroundForegroundApp()
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "BackgroundForegroundApp");
    OutputIndentedAndFormattedString(-1, "Exiting %s()", "BackgroundForegroundApp");
}

}  // namespace CrossPluginUtils
