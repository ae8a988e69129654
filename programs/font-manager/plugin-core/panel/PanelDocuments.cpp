#include "plugin-core/panel/PanelDocuments.h"

#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "plugin-core/documents/FontJson.h"

using nlohmann::json;

namespace plugincore {
namespace {

// Documents are full paths; other holders of fonts aren't.
constexpr const char* kHolds =
    "SELECT document, holder, name FROM hold WHERE substr(document, 1, 1) = '/'"
    " ORDER BY document, holder, name";

// The fonts that the document needs: what it holds, and what its last usage report names. The file
// isn't read here: a large one takes seconds, in which no request would be served.
std::set<std::string> AddReportedFonts(Services& services, const std::string& path,
                                       std::set<std::string> names)
{
    try {
        const std::string report = services.documentStore.GetUsage(path);
        if (report.empty()) return names;
        const Usage usage = ReadUsage(report);
        if (usage.fonts) names.insert(usage.fonts->begin(), usage.fonts->end());
    } catch (const Failure&) {
        return names;  // the report is damaged
    }
    return names;
}

const char* GetState(const Services::ActiveNames& active, Services& services,
                     const std::string& name)
{
    if (active.others.count(name) != 0) return "active";
    if (active.ours.count(name) != 0) return "activated";
    return services.library.FindAnywhere(name) ? "inactive" : "missing";
}

}  // namespace

json ListPanelDocuments(Services& services)
{
    std::map<std::pair<std::string, std::string>, std::set<std::string>> held;
    {
        Statement statement(services.database, kHolds);
        while (statement.Step()) {
            held[{statement.GetText(0), statement.GetText(1)}].insert(statement.GetText(2));
        }
    }
    const Services::ActiveNames active = services.ListActive();
    json documents = json::array();
    for (const auto& [document, names] : held) {
        const auto& [path, holder] = document;
        if (!IsProcessAlive(holder)) continue;
        json fonts = json::array();
        for (const std::string& name : AddReportedFonts(services, path, names)) {
            fonts.push_back(
                {{"PostScriptName", name}, {"state", GetState(active, services, name)}});
        }
        documents.push_back({{"process", services.programs.Describe(holder)},
                             {"name", std::filesystem::path(path).filename().string()},
                             {"path", path},
                             {"fonts", std::move(fonts)}});
    }
    return documents;
}

std::string MakeMarkOfDocuments(Services& services)
{
    std::string mark;
    Statement statement(services.database, kHolds);
    while (statement.Step()) {
        for (const int column : {0, 1, 2}) mark += statement.GetText(column) + '\n';
    }
    return mark;
}

}  // namespace plugincore
