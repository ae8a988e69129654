#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "base/Strings.h"
#include "console/Console.h"
#include "console/Log.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;

namespace vexcor {
namespace {

// The folder as `Vexcor add` keeps it; as the user spelled it if it doesn't exist any more.
std::string GetFolder(const std::string& operand)
{
    std::error_code error;
    const fs::path folder = fs::canonical(operand, error);
    if (!error) return folder;
    fs::path absolute = fs::absolute(operand, error).lexically_normal();
    if (!absolute.has_filename() && absolute.has_relative_path()) absolute = absolute.parent_path();
    return absolute;
}

}  // namespace

int RunRemoveCommand(plugincore::Services& services, const Options& options)
{
    const std::string folder = GetFolder(options.operand);
    const std::vector<std::string>& roots = services.folders.GetRoots();
    if (std::find(roots.begin(), roots.end(), folder) != roots.end()) {
        console::PrintError(folder +
                            ": cannot be removed: it is not one of the folders that were "
                            "added");
        return kNegative;
    }
    const bool isRemoved = services.folders.Remove(folder);
    if (!isRemoved) {
        console::PrintError(folder + ": not in the font library");
        return kNegative;
    }
    const std::string selected = services.folders.GetSelected();
    if (selected == folder || base::StartsWith(selected, folder + "/")) services.folders.Select("");
    services.ApplyLibraryChoice();
    const std::string line = folder + ": removed";
    console::LogAction(line);
    const nlohmann::ordered_json json = {{"folder", folder}, {"removed", true}};
    const std::string text =
        options.json ? base::PrintJson(json) : std::string(console::MakePrintable(line));
    return console::Print(text + "\n") ? kSuccess : kFileFailed;
}

}  // namespace vexcor
