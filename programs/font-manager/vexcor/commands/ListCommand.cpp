#include <algorithm>
#include <string>
#include <vector>

#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"

namespace vexcor {
namespace {

constexpr size_t kStateWidth = sizeof "activated  " - 1;  // of the longest state

std::string MakeText(plugincore::Services& services, const Options& options)
{
    const ActiveFiles active = services.ListActiveFiles();
    const plugincore::Snapshot snapshot(services.database);
    const std::vector<FontState> fonts = ListStates(services, active);
    size_t width = 0;
    for (const FontState& font : fonts) width = std::max(width, font.name.size());
    std::string text;
    for (const FontState& font : fonts) {
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
    const std::string text = MakeText(services, options);
    for (const auto& bad : services.library.ListBadFiles()) {
        console::PrintError(bad.path + ": skipped: " + bad.problem);
    }
    return console::Print(text) ? kSuccess : kFileFailed;
}

}  // namespace vexcor
