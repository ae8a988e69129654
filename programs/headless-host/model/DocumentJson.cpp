#include "model/DocumentJson.h"

#include <stdexcept>

namespace headless {

namespace {

using nlohmann::json;

json WriteRuns(const std::vector<documents::TextRun>& runs)
{
    json list = json::array();
    for (const documents::TextRun& run : runs) {
        list.push_back(json::array({run.postScriptName, run.length}));
    }
    return list;
}

std::vector<documents::TextRun> ReadRuns(const json& list)
{
    std::vector<documents::TextRun> runs;
    for (const json& run : list) {
        runs.push_back({run.at(0).get<std::string>(), run.at(1).get<size_t>()});
    }
    return runs;
}

documents::Kind ReadKind(const std::string& name)
{
    for (const documents::Kind kind :
         {documents::Kind::kIllustrator, documents::Kind::kPDF, documents::Kind::kEPS}) {
        if (name == documents::GetKindName(kind)) return kind;
    }
    return documents::Kind::kUnknown;
}

}  // namespace

json WriteContent(const documents::Document& document)
{
    json frames = json::array();
    for (const documents::TextFrame& frame : document.frames) {
        frames.push_back(json::array({frame.story, WriteRuns(frame.runs)}));
    }
    json stories = json::array();
    for (const documents::Story& story : document.stories) {
        stories.push_back(WriteRuns(story.runs));
    }
    return {{"kind", documents::GetKindName(document.kind)},
            {"template", document.isTemplate},
            {"frames", frames},
            {"stories", stories},
            {"fonts", document.fonts},
            {"linkedFiles", document.linkedFiles}};
}

documents::Document ReadContent(const json& content)
{
    documents::Document document;
    document.kind = ReadKind(content.at("kind").get<std::string>());
    document.isTemplate = content.at("template").get<bool>();
    for (const json& story : content.at("stories")) document.stories.push_back({ReadRuns(story)});
    for (const json& frame : content.at("frames")) {
        const auto story = frame.at(0).get<size_t>();
        if (story >= document.stories.size()) {
            throw std::out_of_range("a frame shows story " + std::to_string(story) + " of " +
                                    std::to_string(document.stories.size()));
        }
        document.frames.push_back({story, ReadRuns(frame.at(1))});
    }
    document.fonts = content.at("fonts").get<std::vector<std::string>>();
    document.linkedFiles = content.at("linkedFiles").get<std::vector<std::string>>();
    return document;
}

}  // namespace headless
