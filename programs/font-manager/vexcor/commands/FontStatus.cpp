#include "vexcor/commands/FontStatus.h"

#include <algorithm>
#include <filesystem>

#include "base/Files.h"
#include "base/JsonText.h"
#include "console/Console.h"
#include "plugin-core/activation/UnavailableFont.h"
#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/storage/Settings.h"

using nlohmann::json;
using plugincore::Activation;
using plugincore::Services;

namespace vexcor {
namespace {

constexpr const char* kHeldByDocuments = "held by open documents";

bool IsOff(Services& services)
{
    plugincore::Settings settings;
    return plugincore::GetActivationMode(settings, services.locations.settings) ==
           plugincore::ActivationMode::kOff;
}

std::string GetReasonOfInactive(Services& services, const FontStatus& status)
{
    if (!services.activation.FindGoneFile(status.name).empty()) {
        return std::string(plugincore::kUnreadableFile) + " any more";
    }
    std::string reason =
        plugincore::GetReasonUnavailable(services.library, status.name, status.file);
    if (!reason.empty()) return reason;
    if (IsOff(services)) return "activation is off";
    return "no open document holds it";
}

std::string GetReasonOfActivated(Services& services, const FontStatus& status, bool isSeen)
{
    if (isSeen) return kHeldByDocuments;
    if (!base::IsReadableFile(status.file)) {
        return std::string(plugincore::kUnreadableFile) + " any more";
    }
    return "fontconfig doesn't see " + services.locations.activationFolder.string();
}

void AddHolders(Services& services, FontStatus& status)
{
    for (const Activation::HoldOfDocument& hold : services.activation.ListHolds(status.name)) {
        status.holders.push_back(
            {hold.document.empty() ? "a document without a file" : hold.document,
             services.programs.Describe(hold.holder)});
    }
    const bool isOfUser = std::all_of(
        status.holders.begin(), status.holders.end(),
        [](const FontStatus::Holder& holder) { return holder.document == kHeldByUser; });
    if (isOfUser && status.reason == kHeldByDocuments) status.reason = "activated by the user";
}

void AddBadFiles(Services& services, FontStatus& status)
{
    for (const auto& bad : services.library.ListBadFiles()) {
        if (std::filesystem::path(bad.path).stem() == status.name) {
            status.badFiles.push_back(bad.path + ": " + bad.problem);
        }
    }
}

}  // namespace

FontStatus ExplainFont(Services& services, const ActiveFiles& active, const std::string& name)
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
    status.otherFiles = services.library.ListFiles(name);
    status.file = services.activation.FindActiveFile(name);
    if (!status.file.empty()) {
        status.state = isSeen ? "activated" : "inactive";
        status.reason = GetReasonOfActivated(services, status, isSeen);
        AddHolders(services, status);
    } else if (!fileOfOthers.empty()) {
        status.state = "active";
        status.reason = "installed without Vexcor, which leaves it alone";
        status.file = fileOfOthers;
    } else {
        status.state = "inactive";
        status.file =
            services.library.Find(name).value_or(services.library.FindAnywhere(name).value_or(""));
        status.reason = GetReasonOfInactive(services, status);
        if (status.file.empty()) status.file = services.activation.FindGoneFile(name);
    }
    if (status.otherFiles.empty()) {
        status.similarNames = services.library.ListSimilarNames(name);
        AddBadFiles(services, status);
    }
    status.otherFiles.erase(
        std::remove(status.otherFiles.begin(), status.otherFiles.end(), status.file),
        status.otherFiles.end());
    return status;
}

std::string DescribeHolder(const FontStatus::Holder& holder)
{
    if (holder.document == kHeldByUser) return "the user, until Vexcor deactivate";
    return holder.document + ", open in " + holder.program;
}

std::string WriteStatusAsText(const FontStatus& status)
{
    std::string text = status.name + ": " + status.state + ": " + status.reason + "\n";
    const auto add = [&text](const char* what, const std::string& value) {
        text += std::string("    ") + what + ": " + console::MakePrintable(value) + "\n";
    };
    if (!status.file.empty()) add("file", status.file);
    for (const FontStatus::Holder& holder : status.holders) {
        add("held by", DescribeHolder(holder));
    }
    for (const std::string& file : status.otherFiles) add("other file with this name", file);
    for (const std::string& name : status.similarNames) add("similar name", name);
    for (const std::string& file : status.badFiles) add("unusable file", file);
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
    return base::PrintJson(value) + "\n";
}

}  // namespace vexcor
