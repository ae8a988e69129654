#pragma once

#include <nlohmann/json.hpp>

namespace headless {

// Returns the members that the JSON reports of all commands begin with.
//
// status   the first word about the file: whether the command could do its work
template <class Report>
nlohmann::ordered_json BeginJsonReport(const Report& report, const char* status)
{
    nlohmann::ordered_json line;
    line["path"] = report.path;
    line["status"] = status;
    line["error"] = report.error;
    line["kind"] = report.kind;
    line["reader"] = report.reader;
    line["note"] = report.note;
    return line;
}

// Returns the members that a font has in the JSON reports of all commands.
//
// font   a documents::DocumentFont, or a struct with the same members
template <class Font>
nlohmann::ordered_json BeginJsonFont(const Font& font)
{
    nlohmann::ordered_json entry;
    entry["PostScriptName"] = font.postScriptName;
    entry["listed"] = font.isListed;
    return entry;
}

}  // namespace headless
