#include "vexcor/commands/FontStatus.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "console/Console.h"
#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/storage/Settings.h"

using nlohmann::json;
using plugincore::Activation;
using plugincore::Workspace;

namespace vexcor {
namespace {

bool IsReadable(const std::string& file) { return std::ifstream(file, std::ios::binary).is_open(); }

bool IsOff(Workspace& workspace)
{
    plugincore::Settings settings;
    const std::string setting =
        settings.Get(workspace.locations.settings, plugincore::kActivationSetting);
    return plugincore::ReadActivationMode(setting) == plugincore::ActivationMode::kOff;
}

// Why a font that is in neither way active isn't.
std::string GetReasonOfInactive(Workspace& workspace, const FontStatus& status)
{
    if (status.file.empty()) return "in no font library";
    if (!IsReadable(status.file)) return "its file cannot be read";
    if (!workspace.library.Find(status.name)) {
        return "not in the selected library " + workspace.library.GetSelection();
    }
    if (IsOff(workspace)) return "activation is off";
    return "no open document holds it";
}

std::string GetReasonOfActivated(Workspace& workspace, const FontStatus& status, bool isSeen)
{
    if (isSeen) return "held by open documents";
    if (!IsReadable(status.file)) return "its file cannot be read any more";
    return "fontconfig doesn't see " + workspace.locations.activationFolder.string();
}

void AddHolders(Workspace& workspace, FontStatus& status)
{
    for (const Activation::HoldOfDocument& hold : workspace.activation.ListHolds(status.name)) {
        status.holders.push_back(
            {hold.document.empty() ? "a document without a file" : hold.document,
             workspace.programs.Describe(hold.holder)});
    }
}

void AddBadFiles(Workspace& workspace, FontStatus& status)
{
    for (const auto& bad : workspace.library.ListBadFiles()) {
        if (std::filesystem::path(bad.path).stem() == status.name) {
            status.badFiles.push_back(bad.path + ": " + bad.problem);
        }
    }
}

}  // namespace

FontStatus ExplainFont(Workspace& workspace, const ActiveFiles& active, const std::string& name)
{
    FontStatus status;
    status.name = name;
    bool isSeen = false;
    std::string fileOfOthers;
    const auto range = active.equal_range(name);
    std::for_each(range.first, range.second, [&](const auto& entry) {
        isSeen = isSeen || entry.second.isOurs;
        if (!entry.second.isOurs) fileOfOthers = entry.second.file;
    });
    status.otherFiles = workspace.library.ListFiles(name);
    status.file = workspace.activation.FindActiveFile(name);
    if (!status.file.empty()) {
        status.state = isSeen ? "activated" : "inactive";
        status.reason = GetReasonOfActivated(workspace, status, isSeen);
        AddHolders(workspace, status);
    } else if (!fileOfOthers.empty()) {
        status.state = "active";
        status.reason = "without Vexcor, which doesn't touch it";
        status.file = fileOfOthers;
    } else {
        status.state = "inactive";
        status.file = workspace.library.Find(name).value_or(
            workspace.library.FindAnywhere(name).value_or(""));
        status.reason = GetReasonOfInactive(workspace, status);
    }
    if (status.otherFiles.empty()) {
        status.similarNames = workspace.library.ListSimilarNames(name);
        AddBadFiles(workspace, status);
    }
    status.otherFiles.erase(
        std::remove(status.otherFiles.begin(), status.otherFiles.end(), status.file),
        status.otherFiles.end());
    return status;
}

std::string WriteStatusAsText(const FontStatus& status)
{
    std::string text = status.name + ": " + status.state + ": " + status.reason + "\n";
    const auto add = [&text](const char* what, const std::string& value) {
        text += std::string("    ") + what + ": " + console::MakePrintable(value) + "\n";
    };
    if (!status.file.empty()) add("file", status.file);
    for (const FontStatus::Holder& holder : status.holders) {
        add("held by", holder.document + ", open in " + holder.program);
    }
    for (const std::string& file : status.otherFiles) add("other file with this name", file);
    for (const std::string& name : status.similarNames) add("similar name", name);
    for (const std::string& file : status.badFiles) add("file of no use", file);
    return text;
}

std::string WriteStatusAsJson(const FontStatus& status)
{
    json holders = json::array();
    for (const FontStatus::Holder& holder : status.holders) {
        holders.push_back({{"document", holder.document}, {"program", holder.program}});
    }
    const json value = {{"PostScriptName", status.name},
                        {"state", status.state},
                        {"reason", status.reason},
                        {"file", status.file},
                        {"heldBy", holders},
                        {"otherFiles", status.otherFiles},
                        {"similarNames", status.similarNames},
                        {"badFiles", status.badFiles}};
    return value.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
}

}  // namespace vexcor
