#include <algorithm>
#include <string>
#include <vector>

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

bool IsWanted(plugincore::Services& services, const Options& options, const FontState& font)
{
    if (!IsWanted(options, font.name) || (!options.state.empty() && options.state != font.state)) {
        return false;
    }
    return options.family.empty() ||
           MatchesPattern(FindFamily(services, font.file, font.name), options.family);
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

std::string MakeText(plugincore::Services& services, const Options& options)
{
    const ActiveFiles active = services.ListActiveFiles();
    const plugincore::Snapshot snapshot(services.database);
    const std::vector<FontState> fonts = ListStates(services, active);
    size_t width = 0;
    for (const FontState& font : fonts) width = std::max(width, font.name.size());
    std::string text;
    for (const FontState& font : fonts) {
        if (!IsWanted(services, options, font)) continue;
        if (options.json) {
            text += WriteStatusAsJson(ExplainFont(services, active, font.name));
            continue;
        }
        std::string line = console::MakePrintable(font.name);
        line.resize(width + 2, ' ');
        line += font.state;
        line.resize(width + 2 + kStateWidth, ' ');
        text += line + console::MakePrintable(font.file) + "\n";
    }
    return text;
}

}  // namespace

int RunListCommand(plugincore::Services& services, const Options& options)
{
    if (options.names) return PrintNames(services, options) ? kSuccess : kFileFailed;
    const std::string text = MakeText(services, options);
    for (const auto& bad : services.library.ListBadFiles()) {
        console::PrintError(bad.path + ": skipped: " + bad.problem);
    }
    return console::Print(text) ? kSuccess : kFileFailed;
}

}  // namespace vexcor
