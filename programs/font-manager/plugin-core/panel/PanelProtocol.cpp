#include "plugin-core/panel/PanelProtocol.h"

#include <algorithm>

#include "base/JsonText.h"
#include "plugin-core/storage/Failure.h"

using nlohmann::json;

namespace plugincore {
namespace {

// Holds the fonts that the panel activated. Not the name of a document: those are full paths.
constexpr const char* kPanel = "panel:";

constexpr int64_t kMostFonts = 1000;
constexpr int64_t kUsualFonts = 500;
// Far below PanelLimits::kOutput, so that an answer never closes the connection.
constexpr size_t kMostBytes = 256U << 10;

using Names = std::vector<std::string>;

Failure MakeFailure(const std::string& reason) { return {StatusCodes::kInvalidParam, reason}; }

int64_t ReadNumber(const json& request, const char* key, int64_t fallback, int64_t most)
{
    const auto member = request.find(key);
    if (member == request.end()) return fallback;
    if (!member->is_number_unsigned() || member->get<uint64_t>() > static_cast<uint64_t>(most)) {
        throw MakeFailure(std::string("\"") + key + "\" isn't a number from 0 to " +
                          std::to_string(most));
    }
    return member->get<int64_t>();
}

std::string ReadString(const json& request, const char* key)
{
    const auto member = request.find(key);
    if (member == request.end()) return {};
    if (!member->is_string()) throw MakeFailure(std::string("\"") + key + "\" isn't a string");
    return member->get<std::string>();
}

Names ReadFonts(const json& request)
{
    const auto member = request.find("fonts");
    const auto isText = [](const json& name) { return name.is_string(); };
    if (member == request.end() || !member->is_array() ||
        !std::all_of(member->begin(), member->end(), isText)) {
        throw MakeFailure("\"fonts\" isn't an array of names");
    }
    if (member->size() > static_cast<size_t>(kMostFonts)) {
        throw MakeFailure("\"fonts\" has more than " + std::to_string(kMostFonts) + " names");
    }
    Names names;
    std::set<std::string> known;
    for (const json& name : *member) {
        if (known.insert(name.get<std::string>()).second) names.push_back(name.get<std::string>());
    }
    return names;
}

}  // namespace

json PanelProtocol::ListLibraries()
{
    const std::string selected = mServices.folders.GetSelected();
    json libraries = json::array();
    for (const Library& library : mServices.folders.List()) {
        libraries.push_back({{"name", library.name},
                             {"path", library.path},
                             {"selected", library.path == selected},
                             {"fonts", mServices.library.CountNames(library.path)}});
    }
    return json::object({{"libraries", std::move(libraries)}});
}

json PanelProtocol::ListFonts(const json& request)
{
    constexpr int64_t kMostOffset = 1000000000;
    const int64_t offset = ReadNumber(request, "offset", 0, kMostOffset);
    const int64_t limit = ReadNumber(request, "limit", kUsualFonts, kMostFonts);
    std::string folder = ReadString(request, "library");
    mServices.ApplyLibraryChoice();
    if (folder.empty()) folder = mServices.library.GetSelection();
    const Services::ActiveNames active = mServices.ListActive();
    json list = json::array();
    size_t bytes = 0;
    for (const std::string& name : mServices.library.ListNames(folder, offset, limit)) {
        bytes += name.size();
        if (bytes > kMostBytes) break;
        const char* state = active.others.count(name) != 0 ? "active"
                            : active.ours.count(name) != 0 ? "activated"
                                                           : "inactive";
        list.push_back({{"PostScriptName", name}, {"state", state}});
    }
    return json::object(
        {{"total", mServices.library.CountNames(folder)}, {"fonts", std::move(list)}});
}

json PanelProtocol::Activate(const json& request)
{
    const Names names = ReadFonts(request);
    const std::set<std::string> held = mServices.activation.Hold(kPanel, names);
    const Services::ActiveNames active = mServices.ListActive();
    Names alreadyActive;
    Names inactive;
    for (const std::string& name : names) {
        (held.count(name) + active.others.count(name) != 0 ? alreadyActive : inactive)
            .push_back(name);
    }
    const Names wanted = mServices.SelectFromLibrary(inactive);
    const std::set<std::string> known(wanted.begin(), wanted.end());
    Names missing;
    std::copy_if(inactive.begin(), inactive.end(), std::back_inserter(missing),
                 [&known](const std::string& name) { return known.count(name) == 0; });
    Activation::Outcome outcome;
    if (!wanted.empty()) outcome = mServices.activation.Activate(kPanel, wanted);
    missing.insert(missing.end(), outcome.failed.begin(), outcome.failed.end());
    return json::object(
        {{"activated", outcome.activated}, {"alreadyActive", alreadyActive}, {"missing", missing}});
}

json PanelProtocol::Deactivate(const json& request)
{
    const std::set<std::string> ours = mServices.activation.GetHeld(kPanel);
    Names released;
    Names notActivated;
    for (const std::string& name : ReadFonts(request)) {
        (ours.count(name) != 0 ? released : notActivated).push_back(name);
    }
    mServices.activation.Release(kPanel, released);
    const std::set<std::string> active = mServices.activation.GetActive();
    Names held;
    Names deactivated;
    for (const std::string& name : released) {
        (active.count(name) != 0 ? held : deactivated).push_back(name);
    }
    return json::object(
        {{"deactivated", deactivated}, {"held", held}, {"notActivated", notActivated}});
}

PanelProtocol::Answer PanelProtocol::Serve(const std::string& line)
{
    Answer answer;
    json id;
    json result;
    try {
        const json request = json::parse(line, nullptr, false);
        if (!request.is_object()) throw MakeFailure("the line isn't a JSON object");
        if (request.find("id") != request.end()) id = request.at("id");
        const std::string operation = ReadString(request, "op");
        if (operation == "libraries") {
            result = ListLibraries();
        } else if (operation == "fonts") {
            result = ListFonts(request);
        } else if (operation == "activate") {
            result = Activate(request);
        } else if (operation == "deactivate") {
            result = Deactivate(request);
        } else if (operation == "subscribe") {
            answer.subscribes = true;
        } else {
            throw MakeFailure("there is no such operation");
        }
        result["ok"] = true;
    } catch (const std::exception& failure) {
        result = json::object({{"ok", false}, {"error", failure.what()}});
    }
    if (!id.is_null()) result["id"] = std::move(id);
    answer.line = base::PrintJson(result);
    return answer;
}

void PanelProtocol::BeginEvents()
{
    mMark = mServices.database.GetChangeMark();
    mActive = mServices.activation.GetActive();
}

std::vector<std::string> PanelProtocol::TakeEvents()
{
    std::string mark = mServices.database.GetChangeMark();
    if (mark == mMark) return {};
    mMark = std::move(mark);
    std::set<std::string> active = mServices.activation.GetActive();
    if (active == mActive) return {};
    Names activated;
    Names deactivated;
    std::set_difference(active.begin(), active.end(), mActive.begin(), mActive.end(),
                        std::back_inserter(activated));
    std::set_difference(mActive.begin(), mActive.end(), active.begin(), active.end(),
                        std::back_inserter(deactivated));
    mActive = std::move(active);
    return {base::PrintJson(json::object(
        {{"event", "fonts"}, {"activated", activated}, {"deactivated", deactivated}}))};
}

}  // namespace plugincore
