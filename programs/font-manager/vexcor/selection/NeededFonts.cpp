#include "vexcor/selection/NeededFonts.h"

#include <algorithm>
#include <filesystem>

#include "documents/OpenDocument.h"
#include "plugin-core/storage/Failure.h"

using plugincore::Activation;
using plugincore::Failure;
using plugincore::Services;
using plugincore::StatusCodes;

namespace vexcor {
namespace {

using Names = std::vector<std::string>;

template <class Test>
Names Select(const Names& names, Test test)
{
    Names selected;
    std::copy_if(names.begin(), names.end(), std::back_inserter(selected), test);
    return selected;
}

}  // namespace

NeededFonts ReadNeededFonts(Services& services, const std::string& file)
{
    std::error_code error;
    NeededFonts needed;
    needed.path = std::filesystem::absolute(file, error).lexically_normal();
    const documents::OpenResult result = documents::OpenDocument(needed.path);
    if (!result.ok) throw Failure(StatusCodes::kError, file + ": " + result.error);
    needed.names = documents::GetAllFontNames(result.document);
    std::set<std::string> seen(needed.names.begin(), needed.names.end());
    for (std::string& name :
         services.linkedDocuments.GetFonts(needed.path, result.document.linkedFiles)) {
        if (seen.insert(name).second) needed.names.push_back(std::move(name));
    }
    return needed;
}

NeededFontsResult ActivateNeededFonts(Services& services, Activation& activation,
                                      const NeededFonts& needed)
{
    const Services::ActiveNames before = services.ListActive();
    const Names names = services.MatchFontNames(needed.names);
    const std::set<std::string> held = activation.Hold(needed.path, names);
    // The tables say active and fontconfig doesn't: the folder was cleared by the user or a tool.
    if (!std::includes(before.ours.begin(), before.ours.end(), held.begin(), held.end())) {
        (void)activation.Repair();  // the list of repairs isn't needed here
    }
    const Names inactive = Select(names, [&](const auto& name) {
        return held.count(name) == 0 && before.others.count(name) == 0;
    });
    const Names wanted = services.SelectFromLibrary(inactive);
    NeededFontsResult result;
    if (!wanted.empty()) result.activated = activation.Activate(needed.path, wanted).activated;
    const Services::ActiveNames after = services.ListActive();
    const Names unseen =
        Select(result.activated, [&](const auto& name) { return after.ours.count(name) == 0; });
    if (!unseen.empty()) {
        throw Failure(StatusCodes::kError,
                      services.locations.activationFolder.string() +
                          ": fontconfig doesn't see what is activated there: " +
                          plugincore::JoinNames(unseen));
    }
    result.missing = Select(names, [&](const auto& name) {
        return after.ours.count(name) == 0 && after.others.count(name) == 0;
    });
    return result;
}

}  // namespace vexcor
