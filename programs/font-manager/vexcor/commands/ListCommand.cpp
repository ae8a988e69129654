#include <algorithm>
#include <set>

#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"
#include "vexcor/selection/FontSelection.h"

namespace vexcor {
namespace {

constexpr size_t kStateWidth = sizeof "activated  " - 1;  // of the longest state

bool IsWanted(const Options& options, const std::string& name)
{
    return options.operands.empty() ||
           std::any_of(options.operands.begin(), options.operands.end(),
                       [&](const std::string& word) { return MatchesPattern(name, word); });
}

// Reads the file only if the user asked for a family: that takes time.
bool IsWanted(const Options& options, const std::string& name, const std::string& state,
              const std::string& file)
{
    if (!IsWanted(options, name) || (!options.state.empty() && options.state != state)) {
        return false;
    }
    return options.family.empty() || MatchesPattern(ReadFamily(file, name), options.family);
}

// For the completion of the shell, which calls this at each key: asks fontconfig nothing.
bool PrintNames(plugincore::Services& services, const Options& options)
{
    std::string text;
    for (const std::string& name : ListAllNames(services)) {
        if (IsWanted(options, name)) text += console::MakePrintable(name) + "\n";
    }
    return console::Print(text);
}

// The names in the library, and those that Vexcor activated and that were removed from it since.
std::set<std::string> GetNames(plugincore::Services& services)
{
    constexpr int64_t kNoLimit = -1;
    std::set<std::string> names = services.activation.GetActive();
    for (std::string& name : services.library.ListNames("", 0, kNoLimit)) {
        names.insert(std::move(name));
    }
    return names;
}

}  // namespace

int RunListCommand(plugincore::Services& services, const Options& options)
{
    if (options.names) return PrintNames(services, options) ? kSuccess : kFileFailed;
    const std::set<std::string> names = GetNames(services);
    const ActiveFiles active = services.ListActiveFiles();
    size_t width = 0;
    for (const std::string& name : names) width = std::max(width, name.size());
    std::string text;
    for (const std::string& name : names) {
        const FontStatus status = ExplainFont(services, active, name);
        if (!IsWanted(options, name, status.state, status.file)) continue;
        if (options.json) {
            text += WriteStatusAsJson(status);
            continue;
        }
        std::string line = console::MakePrintable(name);
        line.resize(width + 2, ' ');
        line += status.state;
        line.resize(width + 2 + kStateWidth, ' ');
        text += line + console::MakePrintable(status.file) + "\n";
    }
    for (const auto& bad : services.library.ListBadFiles()) {
        console::PrintError(bad.path + ": skipped: " + bad.problem);
    }
    return console::Print(text) ? kSuccess : kFileFailed;
}

}  // namespace vexcor
