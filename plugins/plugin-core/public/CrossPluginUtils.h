#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using nlohmann::json;

// One font. The key "PostScriptName" holds its name, which alone identifies the font; other pairs
// are kept and written to JSON.
struct SFontRecord : std::map<std::string, std::string> {};

typedef std::vector<SFontRecord> FontList;

// Replaces `target` by a JSON object with the record's pairs. Found by the JSON library.
void to_json(json& target, const SFontRecord& record);

// The JSON that carries fonts, linked files and settings between a plug-in and PluginCore.
// The functions have no state. [main-thread]
namespace CrossPluginUtils {

// Sets the record's "PostScriptName" to `name` and keeps its other pairs.
void CreateFontDataForOneFont(std::string name, SFontRecord& record);

// Appends the record to `fonts` and returns true. If `checkForDuplicates` is set and the list
// already has the same name, byte for byte, returns false and appends nothing. A record without a
// name is treated as one with an empty name.
bool AddFontToArray(SFontRecord record, bool checkForDuplicates, FontList& fonts);

// Returns the usage report, one line of JSON:
//   {"DocumentFonts":[{"PostScriptName":"A"},...],"LinkedDocuments":["/path",...]}
// Both members are always present; the arrays keep the order of the arguments, repeats included.
// Throws the JSON library's type error if a string isn't UTF-8.
std::string JSONStringRepresentation(const FontList& fonts,
                                     const std::vector<std::string>& linkedDocuments);

// Reads one setting from a JSON object whose members are strings that hold decimal integers.
//
// buffer  the JSON, zero-terminated; may be null
// key     the member's name; may be null
// value   out: the integer, up to the first character that isn't a digit; 0 without any digit
//
// Returns 0. Returns -1 and leaves `value` unchanged if the buffer isn't a JSON object, or if the
// member is missing or isn't a string.
int GetSettingFromJSONBuffer(const char* buffer, const char* key, int* value);

// Hook for bringing the host to the front after fonts were activated. Does nothing but trace.
void BackgroundForegroundApp();

}  // namespace CrossPluginUtils
