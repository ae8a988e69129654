#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using nlohmann::json;

// What stands for one font: its PostScript name under "PostScriptName". The record is open: other
// pairs are carried along.
struct SFontRecord : std::map<std::string, std::string> {};

typedef std::vector<SFontRecord> FontList;

// Makes `target` an object with the record's pairs.
void to_json(json& target, const SFontRecord& record);

// The JSON that carries fonts, linked files and settings between a plug-in and PluginCore.
// No state; main thread.
namespace CrossPluginUtils {

// Sets the record's name; other pairs stay.
void CreateFontDataForOneFont(std::string name, SFontRecord& record);

// Appends the record and returns true. With `checkForDuplicates` a record whose name is already in
// the list, byte for byte, is left out and the result is false.
bool AddFontToArray(SFontRecord record, bool checkForDuplicates, FontList& fonts);

// The usage report: one line with "DocumentFonts" and "LinkedDocuments". Throws the JSON library's
// type error for text that isn't UTF-8.
std::string JSONStringRepresentation(const FontList& fonts,
                                     const std::vector<std::string>& linkedDocuments);

// Reads a decimal integer that stands as a string under `key` of a JSON object. 0 on success; -1
// otherwise, with `value` as it was. Digits end at the first other character; none at all give 0.
int GetSettingFromJSONBuffer(const char* buffer, const char* key, int* value);

// The place where a plug-in brings the host to the front; nothing is to be done there.
void BackgroundForegroundApp();

}  // namespace CrossPluginUtils
