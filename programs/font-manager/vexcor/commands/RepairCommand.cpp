#include <algorithm>
#include <set>

#include "base/Plural.h"
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
    Append(lines, "deactivated, as its file is gone: ", repairs.goneFiles);
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

// Makes fontconfig read the activation folder again if it doesn't show the fonts of the database.
// Returns whether both agree afterwards; reports the difference if not.
bool RepairFontconfig(Services& services, Lines& lines)
{
    const std::string folder = services.locations.activationFolder;
    const std::set<std::string> wanted = services.activation.GetActive();
    if (services.ListActive().ours == wanted) return true;
    fonts::RescanFolder(folder);
    lines.push_back("fontconfig: read the folder again: " + folder);
    const std::set<std::string> shown = services.ListActive().ours;
    const std::string missing = GetDifference(wanted, shown);
    const std::string foreign = GetDifference(shown, wanted);
    if (!missing.empty()) console::PrintError(folder + ": fontconfig does not see " + missing);
    if (!foreign.empty()) {
        console::PrintError(folder + ": fontconfig sees fonts that are not activated: " + foreign);
    }
    return missing.empty() && foreign.empty();
}

void DescribeIndex(Services& services, Lines& lines)
{
    const plugincore::FontLibrary::Counts counts = services.library.GetCounts();
    if (counts.filesRead + counts.filesGone != 0) {
        lines.push_back("index: " + base::Count(static_cast<size_t>(counts.filesRead), "file") +
                        " read, " + std::to_string(counts.filesGone) + " removed");
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
        const std::filesystem::path renamed = Quarantine(file);
        lines.push_back("database: damaged (" + damage + "), renamed to " + renamed.string());
        lines.emplace_back("database: created again; folders that were added must be added again");
    }
    Services services(plugincore::GetLocations());
    const Lines repaired = Describe(services.Start());
    lines.insert(lines.end(), repaired.begin(), repaired.end());
    DescribeIndex(services, lines);
    const bool agrees = RepairFontconfig(services, lines);
    services.Stop();
    if (lines.empty() && agrees) lines.emplace_back("nothing to repair");
    std::string text;
    for (const std::string& line : lines) {
        console::LogAction(line);
        text += console::MakePrintable(line) + "\n";
    }
    if (!console::Print(text)) return kFileFailed;
    return agrees ? kSuccess : kNegative;
}

}  // namespace vexcor
