#include "NativeSample.h"

#include <algorithm>
#include <map>

#include "documents/write/NativeWriter.h"

namespace {

struct NativeStory {
    std::string text;
    std::vector<documents::NativeWriter::Run> runs;
};

int GetIndex(std::vector<std::string>& fonts, const std::string& name)
{
    const auto place = std::find(fonts.begin(), fonts.end(), name);
    const auto index = place - fonts.begin();
    if (place == fonts.end()) fonts.push_back(name);
    return static_cast<int>(index);
}

// Returns a comment that lists the items, one per line.
std::string MakeList(const std::string& keyword, const std::vector<std::string>& items)
{
    std::string list;
    for (const std::string& item : items) {
        if (list.empty()) {
            list.append("%%").append(keyword).append(": ");
        } else {
            list += "\n%%+ ";
        }
        list += item;
    }
    return list;
}

}  // namespace

std::string MakeNativePart(const SamplePage& page, const std::vector<std::string>& placedFiles,
                           Packing packing)
{
    std::vector<std::string> fonts;
    std::map<int, NativeStory> stories;
    for (const SampleLine& line : page.lines) {
        NativeStory& story = stories[line.story];
        // A paragraph ends in a return, which is part of its run.
        story.text += line.text + '\r';
        story.runs.push_back({GetIndex(fonts, GetPostScriptName(line.fontFile)),
                              static_cast<int>(line.text.size()) + 1});
    }
    documents::NativeWriter writer;
    writer.AddHeader(MakeList("DocumentFonts", fonts));
    if (!placedFiles.empty()) writer.AddHeader(MakeList("DocumentFiles", placedFiles));
    writer.SetFonts(fonts).AddStyle(0);
    for (const auto& [number, story] : stories) writer.AddStory(story.runs, {}, story.text);
    for (int frame = 0; frame < static_cast<int>(stories.size()); ++frame) writer.AddFrame(frame);
    for (const std::string& file : placedFiles) writer.AddPlacedFile(file);
    const std::string text = writer.MakeText();
    return packing == Packing::kZlib ? documents::PackZlib(text) : documents::PackZstandard(text);
}
