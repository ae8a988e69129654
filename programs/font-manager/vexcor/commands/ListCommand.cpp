#include <algorithm>
#include <set>

#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"

namespace vexcor {
namespace {

// Those of the library, and those that are active through Vexcor and not in it any more.
std::set<std::string> GetNames(plugincore::Workspace& workspace)
{
    constexpr int64_t kNoLimit = -1;
    std::set<std::string> names = workspace.activation.GetActive();
    for (std::string& name : workspace.library.ListNames("", 0, kNoLimit)) {
        names.insert(std::move(name));
    }
    return names;
}

}  // namespace

int RunListCommand(plugincore::Workspace& workspace, const Options& options)
{
    const std::set<std::string> names = GetNames(workspace);
    const ActiveFiles active = workspace.ListActiveFiles();
    size_t width = 0;
    for (const std::string& name : names) width = std::max(width, name.size());
    std::string text;
    for (const std::string& name : names) {
        const FontStatus status = ExplainFont(workspace, active, name);
        if (options.json) {
            text += WriteStatusAsJson(status);
            continue;
        }
        std::string line = console::MakePrintable(name);
        line.resize(width + 2, ' ');
        line += status.state;
        line.resize(width + 2 + std::string("activated  ").size(), ' ');
        text += line + console::MakePrintable(status.file) + "\n";
    }
    for (const auto& bad : workspace.library.ListBadFiles()) {
        console::Tell(bad.path + ": skipped: " + bad.problem);
    }
    return console::Print(text) ? kDone : kFileFailed;
}

}  // namespace vexcor
