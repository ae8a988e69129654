#include "vexcor/Manual.h"

#include "vexcor/Options.h"
#include "vexcor/commands/ExitStatus.h"

namespace vexcor {
namespace {

std::string MakeRow(const std::string& what, const std::string& help)
{
    return "| `" + what + "` | " + help + " |\n";
}

constexpr char kAboutFiles[] =
    "The launch information file is `Corvanta/com.corvanta.Vexcor-LaunchInfo.conf` in the user's\n"
    "data folder (`XDG_DATA_HOME`, else `~/.local/share`); `PluginFiles/PluginCore.framework` "
    "lies\n"
    "beside the program. The font library is as for PluginCore: the folders of\n"
    "`CORVANTA_FONT_LIBRARY`, else `Corvanta/Library` in the data folder, and those added.\n";

}  // namespace

std::string WriteReadme()
{
    std::string commands;
    for (const CommandRow& row : kCommands) {
        commands += MakeRow(row.name + (row.operand ? " " + std::string(row.operand) : "") +
                                (row.hasJson ? " [--json]" : ""),
                            row.help);
    }
    std::string statuses;
    for (const ExitStatusRow& row : kExitStatuses) {
        statuses += MakeRow(std::to_string(row.status), row.meaning);
    }
    return "# Vexcor\n\n    Vexcor COMMAND [OPTION]...\n\n"
           "The font manager's own program: it keeps the font library that PluginCore activates\n"
           "from. This page is what `Vexcor --readme` prints.\n\n## Commands\n\n"
           "| command | |\n|---|---|\n" +
           commands + "\n## Options\n\n| option | |\n|---|---|\n" + MakeRow("--json", kJsonHelp) +
           MakeRow("--log FILE", kLogHelp) + MakeRow("--help", "Show the help, of a command too") +
           MakeRow("--version", "Show the version") +
           "\n## Exit status\n\n| status | |\n|---|---|\n" + statuses + "\n## Files\n\n" +
           kAboutFiles;
}

}  // namespace vexcor
