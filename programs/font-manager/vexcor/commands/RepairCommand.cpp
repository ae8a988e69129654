#include <algorithm>
#include <set>

#include "console/Console.h"
#include "console/Log.h"
#include "fonts/ActiveFonts.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/DatabaseRescue.h"
#include "vexcor/commands/ExitStatus.h"

using plugincore::Activation;
using plugincore::Services;

namespace vexcor {
namespace {

using Lines = std::vector<std::string>;

void Append(Lines& lines, const std::string& what, const Lines& texts)
{
    for (const std::string& text : texts) lines.push_back(what + text);
}

Lines Describe(const Activation::Repairs& repairs)
{
    Lines lines;
    Append(lines, "a program is gone: ", repairs.gonePrograms);
    Append(lines, "dropped its hold: ", repairs.droppedHolds);
    Append(lines, "deactivated, as nobody holds it: ", repairs.deactivatedFiles);
    Append(lines, "folder: ", repairs.folderChanges);
    return lines;
}

std::string GetDifference(const std::set<std::string>& from, const std::set<std::string>& without)
{
    Lines names;
    std::set_difference(from.begin(), from.end(), without.begin(), without.end(),
                        std::back_inserter(names));
    return plugincore::JoinNames(names);
}

// Whether fontconfig shows what the database has.
bool RepairFontconfig(Services& services, Lines& lines)
{
    const std::string folder = services.locations.activationFolder;
    const std::set<std::string> wanted = services.activation.GetActive();
    if (services.ListActive().ours == wanted) return true;
    fonts::RescanFolder(folder);
    lines.push_back("fontconfig: had the folder read anew: " + folder);
    const std::set<std::string> shown = services.ListActive().ours;
    const std::string missing = GetDifference(wanted, shown);
    const std::string foreign = GetDifference(shown, wanted);
    if (!missing.empty()) console::Tell(folder + ": fontconfig doesn't see " + missing);
    if (!foreign.empty()) {
        console::Tell(folder + ": fontconfig sees what isn't activated: " + foreign);
    }
    return missing.empty() && foreign.empty();
}

void TellIndex(Services& services, Lines& lines)
{
    const plugincore::FontLibrary::Counts counts = services.library.GetCounts();
    if (counts.filesRead + counts.filesGone != 0) {
        lines.push_back("index: " + std::to_string(counts.filesRead) + " files read, " +
                        std::to_string(counts.filesGone) + " taken out");
    }
}

}  // namespace

void LogRepairs(const Activation::Repairs& repairs)
{
    for (const std::string& line : Describe(repairs)) console::LogAction(line);
}

int RunRepairCommand()
{
    Lines lines;
    const std::filesystem::path file = plugincore::GetLocations().database;
    if (const std::string damage = FindDamage(file); !damage.empty()) {
        const std::filesystem::path aside = Quarantine(file);
        lines.push_back("database: damaged (" + damage + "), put aside as " + aside.string());
        lines.emplace_back("database: made anew; folders that were added have to be added again");
    }
    Services services(plugincore::GetLocations());
    const Lines repaired = Describe(services.Start());
    lines.insert(lines.end(), repaired.begin(), repaired.end());
    TellIndex(services, lines);
    const bool agrees = RepairFontconfig(services, lines);
    services.Stop();
    if (lines.empty() && agrees) lines.emplace_back("nothing had to be repaired");
    std::string text;
    for (const std::string& line : lines) {
        console::LogAction(line);
        text += console::MakePrintable(line) + "\n";
    }
    if (!console::Print(text)) return kFileFailed;
    return agrees ? kDone : kNegative;
}

}  // namespace vexcor
