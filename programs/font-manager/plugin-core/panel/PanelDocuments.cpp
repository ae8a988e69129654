#include "plugin-core/panel/PanelDocuments.h"

#include <filesystem>
#include <map>
#include <set>
#include <utility>

using nlohmann::json;

namespace plugincore {
namespace {

// What is open, and what is held. Documents are full paths; other holders of fonts aren't.
constexpr const char* kFontsOfDocuments =
    "SELECT path, holder, name FROM open_document"
    " UNION SELECT document, holder, name FROM hold WHERE substr(document, 1, 1) = '/'"
    " ORDER BY 1, 2, 3";

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
    std::map<std::pair<std::string, std::string>, std::set<std::string>> documentFonts;
    {
        Statement statement(services.database, kFontsOfDocuments);
        while (statement.Step()) {
            documentFonts[{statement.GetText(0), statement.GetText(1)}].insert(
                statement.GetText(2));
        }
    }
    const Services::ActiveNames active = services.ListActive();
    json documents = json::array();
    for (const auto& [document, names] : documentFonts) {
        const auto& [path, holder] = document;
        if (!IsProcessAlive(holder)) continue;
        json fonts = json::array();
        for (const std::string& name : names) {
            if (name.empty()) continue;  // a document without fonts
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
    Statement statement(services.database, kFontsOfDocuments);
    while (statement.Step()) {
        for (const int column : {0, 1, 2}) mark += statement.GetText(column) + '\n';
    }
    return mark;
}

}  // namespace plugincore
