#include "docfonts/report/ReportJson.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "base/JsonText.h"
#include "docfonts/report/ReportWords.h"

namespace docfonts {

namespace {

using Json = nlohmann::ordered_json;

// The states by the words for them.
template <class State>
State FindState(const std::string& word, State last)
{
    for (int number = 0; number <= static_cast<int>(last); ++number) {
        const auto state = static_cast<State>(number);
        if (word == GetWord(state)) return state;
    }
    return last;
}

Json MakeFont(const UsedFont& font)
{
    Json entry;
    entry["PostScriptName"] = font.postScriptName;
    entry["listed"] = font.isListed;
    entry["family"] = font.family;
    entry["style"] = font.style;
    entry["state"] = GetWord(font.state);
    entry["otherStyle"] = font.otherStyle;
    entry["file"] = font.file;
    entry["faceIndex"] = font.faceIndex;
    entry["frames"] = font.frames;
    entry["runs"] = font.runs;
    entry["characters"] = font.characters;
    entry["embedded"] = GetWord(font.embedding);
    return entry;
}

UsedFont ReadFont(const Json& entry)
{
    UsedFont font;
    font.postScriptName = entry.at("PostScriptName").get<std::string>();
    font.isListed = entry.at("listed").get<bool>();
    font.family = entry.at("family").get<std::string>();
    font.style = entry.at("style").get<std::string>();
    font.state = FindState(entry.at("state").get<std::string>(), FontState::kMissing);
    font.otherStyle = entry.at("otherStyle").get<std::string>();
    font.file = entry.at("file").get<std::string>();
    font.faceIndex = entry.at("faceIndex").get<int>();
    font.frames = entry.at("frames").get<uint64_t>();
    font.runs = entry.at("runs").get<uint64_t>();
    font.characters = entry.at("characters").get<uint64_t>();
    font.embedding = FindState(entry.at("embedded").get<std::string>(), Embedding::kWhole);
    font.words = entry.at("words").get<std::string>();
    return font;
}

Json MakeReport(const DocumentReport& report, bool hasWords)
{
    Json line;
    line["path"] = report.path;
    line["status"] = report.error.empty() ? "read" : "failed";
    line["error"] = report.error;
    line["kind"] = report.format;
    line["reader"] = report.reader;
    line["note"] = report.note;
    line["creator"] = report.creator;
    line["template"] = report.isTemplate;
    line["frames"] = report.frames;
    line["stories"] = report.stories;
    line["runs"] = report.runs;
    Json& fonts = line["documentFonts"] = Json::array();
    for (const UsedFont& font : report.fonts) {
        fonts.push_back(MakeFont(font));
        if (hasWords) fonts.back()["words"] = font.words;
    }
    Json& links = line["linkedDocuments"] = Json::array();
    for (const PlacedFile& file : report.placed) links.push_back(file.path);
    Json& placed = line["placedFiles"] = Json::array();
    for (const PlacedFile& file : report.placed) {
        placed.push_back(
            {{"path", file.path}, {"state", GetWord(file.state)}, {"foundAt", file.foundAt}});
    }
    Json& documents = line["placedDocuments"] = Json::array();
    for (const DocumentReport& document : report.placedDocuments) {
        documents.push_back(MakeReport(document, hasWords));
    }
    return line;
}

DocumentReport ReadReport(const Json& line)
{
    DocumentReport report;
    report.path = line.at("path").get<std::string>();
    report.error = line.at("error").get<std::string>();
    report.format = line.at("kind").get<std::string>();
    report.reader = line.at("reader").get<std::string>();
    report.note = line.at("note").get<std::string>();
    report.creator = line.at("creator").get<std::string>();
    report.isTemplate = line.at("template").get<bool>();
    report.frames = line.at("frames").get<uint64_t>();
    report.stories = line.at("stories").get<uint64_t>();
    report.runs = line.at("runs").get<uint64_t>();
    for (const Json& font : line.at("documentFonts")) report.fonts.push_back(ReadFont(font));
    for (const Json& file : line.at("placedFiles")) {
        report.placed.push_back(
            {file.at("path").get<std::string>(),
             FindState(file.at("state").get<std::string>(), PlacedState::kMissing),
             file.at("foundAt").get<std::string>()});
    }
    for (const Json& document : line.at("placedDocuments")) {
        report.placedDocuments.push_back(ReadReport(document));
    }
    return report;
}

}  // namespace

std::string WriteJson(const DocumentReport& report)
{
    return base::PrintJson(MakeReport(report, false));
}

// CBOR, because its texts can have any bytes, as paths can.
std::string PackReport(const DocumentReport& report)
{
    std::string bytes;
    Json::to_cbor(MakeReport(report, true), bytes);
    return bytes;
}

DocumentReport UnpackReport(const std::string& bytes) { return ReadReport(Json::from_cbor(bytes)); }

}  // namespace docfonts
