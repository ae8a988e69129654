#include "vexcor/commands/FontStory.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "console/Console.h"
#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/storage/Settings.h"

using nlohmann::json;
using plugincore::Activation;
using plugincore::Services;

namespace vexcor {
namespace {

bool IsReadable(const std::string& file) { return std::ifstream(file, std::ios::binary).is_open(); }

bool IsOff(Services& services)
{
    plugincore::Settings settings;
    const std::string setting =
        settings.Get(services.locations.settings, plugincore::kActivationSetting);
    return plugincore::ReadActivationMode(setting) == plugincore::ActivationMode::kOff;
}

// Why a font that is in neither way active isn't.
std::string GetReasonOfInactive(Services& services, const FontStory& story)
{
    if (story.file.empty()) return "in no font library";
    if (!IsReadable(story.file)) return "its file cannot be read";
    if (!services.library.Find(story.name)) {
        return "not in the selected library " + services.library.GetSelection();
    }
    if (IsOff(services)) return "activation is off";
    return "no open document holds it";
}

std::string GetReasonOfActivated(Services& services, const FontStory& story, bool isSeen)
{
    if (isSeen) return "held by open documents";
    if (!IsReadable(story.file)) return "its file cannot be read any more";
    return "fontconfig doesn't see " + services.locations.activationFolder.string();
}

void AddHolders(Services& services, FontStory& story)
{
    for (const Activation::HoldOfDocument& hold : services.activation.ListHolds(story.name)) {
        story.holders.push_back(
            {hold.document.empty() ? "a document without a file" : hold.document,
             services.programs.Describe(hold.holder)});
    }
}

void AddBadFiles(Services& services, FontStory& story)
{
    for (const auto& bad : services.library.ListBadFiles()) {
        if (std::filesystem::path(bad.path).stem() == story.name) {
            story.badFiles.push_back(bad.path + ": " + bad.problem);
        }
    }
}

}  // namespace

FontStory TellStory(Services& services, const ActiveFiles& active, const std::string& name)
{
    FontStory story;
    story.name = name;
    bool isSeen = false;
    std::string fileOfOthers;
    const auto range = active.equal_range(name);
    std::for_each(range.first, range.second, [&](const auto& entry) {
        isSeen = isSeen || entry.second.isOurs;
        if (!entry.second.isOurs) fileOfOthers = entry.second.file;
    });
    story.otherFiles = services.library.ListFiles(name);
    story.file = services.activation.FindActiveFile(name);
    if (!story.file.empty()) {
        story.state = isSeen ? "activated" : "inactive";
        story.reason = GetReasonOfActivated(services, story, isSeen);
        AddHolders(services, story);
    } else if (!fileOfOthers.empty()) {
        story.state = "active";
        story.reason = "without Vexcor, which doesn't touch it";
        story.file = fileOfOthers;
    } else {
        story.state = "inactive";
        story.file =
            services.library.Find(name).value_or(services.library.FindAnywhere(name).value_or(""));
        story.reason = GetReasonOfInactive(services, story);
    }
    if (story.otherFiles.empty()) {
        story.similarNames = services.library.ListSimilarNames(name);
        AddBadFiles(services, story);
    }
    story.otherFiles.erase(
        std::remove(story.otherFiles.begin(), story.otherFiles.end(), story.file),
        story.otherFiles.end());
    return story;
}

std::string WriteStoryAsText(const FontStory& story)
{
    std::string text = story.name + ": " + story.state + ": " + story.reason + "\n";
    const auto add = [&text](const char* what, const std::string& value) {
        text += std::string("    ") + what + ": " + console::MakePrintable(value) + "\n";
    };
    if (!story.file.empty()) add("file", story.file);
    for (const FontStory::Holder& holder : story.holders) {
        add("held by", holder.document + ", open in " + holder.program);
    }
    for (const std::string& file : story.otherFiles) add("other file with this name", file);
    for (const std::string& name : story.similarNames) add("similar name", name);
    for (const std::string& file : story.badFiles) add("file of no use", file);
    return text;
}

std::string WriteStoryAsJson(const FontStory& story)
{
    json holders = json::array();
    for (const FontStory::Holder& holder : story.holders) {
        holders.push_back({{"document", holder.document}, {"program", holder.program}});
    }
    const json value = {{"PostScriptName", story.name},
                        {"state", story.state},
                        {"reason", story.reason},
                        {"file", story.file},
                        {"heldBy", holders},
                        {"otherFiles", story.otherFiles},
                        {"similarNames", story.similarNames},
                        {"badFiles", story.badFiles}};
    return value.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
}

}  // namespace vexcor
