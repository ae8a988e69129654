#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "base/Plural.h"
#include "console/Console.h"
#include "plugin-core/activation/ProcessIdentity.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"

namespace fs = std::filesystem;
using nlohmann::ordered_json;
using plugincore::Services;

namespace vexcor {
namespace {

struct LibraryFolder {
    std::string path;
    int64_t fonts = 0;
};

// All that `Vexcor status` says.
struct LibraryStatus {
    std::vector<LibraryFolder> folders;
    std::string selected;
    plugincore::FontLibrary::Counts counts;
    std::vector<FontStatus> activated;
    std::vector<std::string> programs;  // those that use the library now, without this one
    std::vector<std::string> problems;
};

void AddProblems(Services& services, LibraryStatus& status)
{
    for (const LibraryFolder& folder : status.folders) {
        std::error_code error;
        const bool isFolder = fs::is_directory(folder.path, error);
        const bool isDefault = services.locations.librariesAreDefault &&
                               folder.path == services.locations.libraries.front();
        // The default folder needn't exist.
        if (!isFolder && !isDefault) status.problems.push_back(folder.path + ": not a folder");
    }
    for (const auto& bad : services.library.ListBadFiles()) {
        status.problems.push_back(bad.path + ": skipped: " + bad.problem);
    }
    for (const FontStatus& font : status.activated) {
        if (font.state != "activated") status.problems.push_back(font.name + ": " + font.reason);
    }
}

LibraryStatus GetStatus(Services& services)
{
    LibraryStatus status;
    for (std::string& folder : services.folders.GetFolders()) {
        const int64_t fonts = services.library.CountNames(folder);
        status.folders.push_back({std::move(folder), fonts});
    }
    status.selected = services.library.GetSelection();
    status.counts = services.library.GetCounts();
    const ActiveFiles active = services.ListActiveFiles();
    for (const std::string& name : services.activation.GetActive()) {
        status.activated.push_back(ExplainFont(services, active, name));
    }
    const std::string own = plugincore::GetIdentityOfThisProcess();
    for (const auto& program : services.programs.List()) {
        if (program.identity == own || program.identity == plugincore::kUserHolder) continue;
        status.programs.push_back(services.programs.Describe(program.identity));
    }
    AddProblems(services, status);
    return status;
}

std::string WriteAsJson(const LibraryStatus& status)
{
    ordered_json folders = ordered_json::array();
    for (const LibraryFolder& folder : status.folders) {
        folders.push_back({{"path", folder.path}, {"fonts", folder.fonts}});
    }
    ordered_json activated = ordered_json::array();
    for (const FontStatus& font : status.activated) {
        ordered_json holders = ordered_json::array();
        for (const FontStatus::Holder& holder : font.holders) {
            holders.push_back({{"document", holder.document}, {"program", holder.program}});
        }
        activated.push_back({{"PostScriptName", font.name},
                             {"state", font.state},
                             {"file", font.file},
                             {"heldBy", std::move(holders)}});
    }
    const ordered_json line = {{"folders", std::move(folders)},     {"selected", status.selected},
                               {"fonts", status.counts.names},      {"files", status.counts.files},
                               {"activated", std::move(activated)}, {"programs", status.programs},
                               {"problems", status.problems}};
    return base::PrintJson(line) + "\n";
}

std::string WriteAsText(const LibraryStatus& status)
{
    std::string text = "library: " + base::Count(static_cast<size_t>(status.counts.names), "font") +
                       " in " + base::Count(static_cast<size_t>(status.counts.files), "file") +
                       "\n";
    const auto add = [&text](const std::string& line) {
        text += "    " + console::MakePrintable(line) + "\n";
    };
    for (const LibraryFolder& folder : status.folders) {
        add(folder.path + ": " + base::Count(static_cast<size_t>(folder.fonts), "font"));
    }
    if (!status.selected.empty()) add("fonts are taken from " + status.selected + " only");
    text += "activated: " + base::Count(status.activated.size(), "font") + "\n";
    for (const FontStatus& font : status.activated) {
        add(font.name + ": " + font.file);
        for (const FontStatus::Holder& holder : font.holders) {
            add("    held by: " + DescribeHolder(holder));
        }
    }
    text += "programs: " + std::to_string(status.programs.size()) + "\n";
    for (const std::string& program : status.programs) add(program);
    text += "problems: " + std::to_string(status.problems.size()) + "\n";
    for (const std::string& problem : status.problems) add(problem);
    return text;
}

}  // namespace

int RunStatusCommand(Services& services, const Options& options)
{
    const LibraryStatus status = GetStatus(services);
    if (!console::Print(options.json ? WriteAsJson(status) : WriteAsText(status))) {
        return kFileFailed;
    }
    return status.problems.empty() ? kSuccess : kNegative;
}

}  // namespace vexcor
