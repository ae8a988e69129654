#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "console/Console.h"
#include "console/Log.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"
#include "vexcor/selection/FontSelection.h"
#include "vexcor/selection/NeededFonts.h"

using plugincore::Activation;
using plugincore::Services;

namespace vexcor {
namespace {

using Names = std::vector<std::string>;

// The activation of fonts that the user holds, however many processes come and go.
Activation MakeActivationOfUser(Services& services)
{
    return {services.database, services.library, services.programs,
            plugincore::ActivationFolder(services.locations.activationFolder),
            plugincore::kUserHolder};
}

// What a command did with one font.
struct FontResult {
    std::string name;
    std::string result;
};

bool Print(const std::vector<FontResult>& results, bool asJson)
{
    size_t width = 0;
    for (const FontResult& font : results) width = std::max(width, font.name.size());
    std::string text;
    for (const FontResult& font : results) {
        console::LogAction(font.name + ": " + font.result);
        if (asJson) {
            const nlohmann::ordered_json line = {{"PostScriptName", font.name},
                                                 {"result", font.result}};
            text += base::PrintJson(line) + "\n";
            continue;
        }
        std::string line = console::MakePrintable(font.name);
        line.resize(width + 2, ' ');
        text += line + font.result + "\n";
    }
    return text.empty() || console::Print(text);
}

bool Contains(const Names& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The fonts of all words, each once. Reports problems and sets `hasProblem`.
Names SelectAll(Services& services, const Names& words, bool& hasProblem)
{
    Names names;
    std::set<std::string> seen;
    for (const std::string& word : words) {
        FontSelection selection = SelectFonts(services, word);
        if (!selection.problem.empty()) console::PrintError(selection.problem);
        hasProblem = hasProblem || !selection.problem.empty();
        for (std::string& name : selection.names) {
            if (seen.insert(name).second) names.push_back(std::move(name));
        }
    }
    return names;
}

}  // namespace

int RunActivateCommand(Services& services, const Options& options)
{
    bool hasProblem = false;
    const Names names = SelectAll(services, options.operands, hasProblem);
    if (names.empty()) return kNegative;
    Activation activation = MakeActivationOfUser(services);
    const NeededFontsResult result =
        ActivateNeededFonts(services, activation, {kHeldByUser, names});
    std::vector<FontResult> results;
    for (const std::string& name : names) {
        const char* const text = Contains(result.activated, name) ? "activated"
                                 : Contains(result.missing, name) ? "missing"
                                                                  : "active already";
        results.push_back({name, text});
    }
    if (!Print(results, options.json)) return kFileFailed;
    return hasProblem || !result.missing.empty() ? kNegative : kSuccess;
}

int RunDeactivateCommand(Services& services, const Options& options)
{
    Activation activation = MakeActivationOfUser(services);
    const std::set<std::string> held = activation.GetHeld(kHeldByUser);
    bool hasProblem = false;
    Names names;
    if (options.all) names.assign(held.begin(), held.end());
    for (const std::string& word : options.operands) {
        const size_t before = names.size();
        bool isUnknown = false;
        for (std::string& name : SelectAll(services, {word}, isUnknown)) {
            const bool isHeld = held.count(name) != 0;
            if (isHeld && !Contains(names, name)) names.push_back(std::move(name));
        }
        const bool isIdle = names.size() == before && !isUnknown;
        if (isIdle) console::PrintError(word + ": not activated by Vexcor activate");
        hasProblem = hasProblem || isUnknown || isIdle;
    }
    activation.Release(kHeldByUser, names);
    const std::set<std::string> active = activation.GetActive();
    std::vector<FontResult> results;
    for (const std::string& name : names) {
        results.push_back({name, active.count(name) == 0 ? "deactivated" : "held by documents"});
    }
    if (!Print(results, options.json)) return kFileFailed;
    return hasProblem ? kNegative : kSuccess;
}

}  // namespace vexcor
