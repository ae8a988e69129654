#include "plugin-core/panel/PanelProtocol.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "base/JsonText.h"
#include "base/Strings.h"
#include "plugin-core/panel/PanelDocuments.h"
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

std::set<std::string> ReadStates(const json& request)
{
    const auto member = request.find("states");
    if (member == request.end()) return {};
    std::set<std::string> states;
    const bool isArray = member->is_array();
    for (const json& state : isArray ? *member : json::array({nullptr})) {
        if (state != "active" && state != "activated" && state != "inactive") {
            throw MakeFailure("\"states\" isn't an array of states");
        }
        states.insert(state.get<std::string>());
    }
    if (states.empty()) throw MakeFailure("\"states\" is empty");
    return states;
}

Names SplitWords(const std::string& text)
{
    Names words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

// An absolute path in its plain form, without a slash at its end.
std::string ReadPath(const json& request)
{
    const std::string path = ReadString(request, "path");
    if (path.empty() || path[0] != '/' || path.find('\0') != std::string::npos) {
        throw MakeFailure("\"path\" isn't an absolute path");
    }
    std::string plain = std::filesystem::path(path).lexically_normal().string();
    while (plain.size() > 1 && plain.back() == '/') plain.pop_back();
    return plain;
}

// The folders that the user added to the roots of the library.
Names ListAddedFolders(Services& services)
{
    Names added = services.folders.GetFolders();
    const Names& roots = services.folders.GetRoots();
    added.erase(added.begin(), added.begin() + static_cast<Names::difference_type>(roots.size()));
    return added;
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
    const std::vector<std::string> added = ListAddedFolders(mServices);
    mServices.ApplyLibraryChoice();
    json libraries = json::array();
    for (const Library& library : mServices.folders.List()) {
        const bool isAdded = std::find(added.begin(), added.end(), library.path) != added.end();
        libraries.push_back({{"name", library.name},
                             {"path", library.path},
                             {"selected", library.path == selected},
                             {"fonts", mServices.library.CountNames(library.path)},
                             {"removable", isAdded}});
    }
    return json::object({{"libraries", std::move(libraries)}});
}

json PanelProtocol::ListFonts(const json& request)
{
    constexpr int64_t kMostOffset = 1000000000;
    const int64_t offset = ReadNumber(request, "offset", 0, kMostOffset);
    const int64_t limit = ReadNumber(request, "limit", kUsualFonts, kMostFonts);
    const std::vector<std::string> words = SplitWords(base::ToLower(ReadString(request, "search")));
    const std::set<std::string> states = ReadStates(request);
    std::string folder = ReadString(request, "library");
    mServices.ApplyLibraryChoice();
    if (folder.empty()) folder = mServices.library.GetSelection();
    const Services::ActiveNames active = mServices.ListActive();
    json list = json::array();
    int64_t total = 0;
    size_t bytes = 0;
    for (const PanelFont& font : mFonts.List(folder)) {
        const std::string state = active.others.count(font.postScriptName) != 0 ? "active"
                                  : active.ours.count(font.postScriptName) != 0 ? "activated"
                                                                                : "inactive";
        if (!states.empty() && states.count(state) == 0) continue;
        if (!Matches(font, words)) continue;
        const int64_t position = total++;
        if (position < offset || position >= offset + limit || bytes > kMostBytes) continue;
        bytes += font.postScriptName.size() + font.family.size() + font.style.size();
        if (bytes > kMostBytes) continue;
        list.push_back({{"PostScriptName", font.postScriptName},
                        {"family", font.family},
                        {"style", font.style},
                        {"state", state},
                        {"id", font.id}});
    }
    return json::object({{"total", total}, {"fonts", std::move(list)}});
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

json PanelProtocol::AddLibrary(const json& request)
{
    const std::string path = ReadPath(request);
    std::error_code error;
    if (!std::filesystem::is_directory(path, error)) {
        throw MakeFailure(path + ": " + (error ? error.message() : "not a folder"));
    }
    const std::filesystem::directory_iterator entry(path, error);
    if (error) throw MakeFailure(path + ": cannot be read: " + error.message());
    const bool isNew = mServices.folders.Add(path);
    mServices.ApplyLibraryChoice();
    if (isNew) mServices.library.Refresh();
    return json::object({{"added", isNew}});
}

json PanelProtocol::RemoveLibrary(const json& request)
{
    const std::string path = ReadPath(request);
    const Names added = ListAddedFolders(mServices);
    if (std::find(added.begin(), added.end(), path) == added.end()) {
        throw MakeFailure(path + ": not a folder that was added to the font library");
    }
    Transaction transaction(mServices.database);
    Statement(mServices.database, "DELETE FROM added_folder WHERE path = ?").Bind(path).Run();
    Statement(mServices.database, "DELETE FROM font_file WHERE library = ?").Bind(path).Run();
    transaction.Commit();
    return json::object();
}

json PanelProtocol::SelectLibrary(const json& request)
{
    const std::string path = ReadPath(request);
    const auto member = request.find("selected");
    if (member != request.end() && !member->is_boolean()) {
        throw MakeFailure("\"selected\" isn't true or false");
    }
    const bool isSelected = member == request.end() || member->get<bool>();
    const std::vector<Library> libraries = mServices.folders.List();
    if (std::none_of(libraries.begin(), libraries.end(),
                     [&path](const Library& library) { return library.path == path; })) {
        throw MakeFailure(path + ": not a font library");
    }
    if (isSelected) {
        mServices.folders.Select(path);
    } else if (mServices.folders.GetSelected() == path) {
        mServices.folders.Select("");
    }
    return json::object();
}

json PanelProtocol::ListDocuments()
{
    mServices.ApplyLibraryChoice();
    return json::object({{"documents", ListPanelDocuments(mServices)}});
}

json PanelProtocol::ServeOperation(const std::string& operation, const json& request)
{
    if (operation == "libraries") return ListLibraries();
    if (operation == "fonts") return ListFonts(request);
    if (operation == "activate") return Activate(request);
    if (operation == "deactivate") return Deactivate(request);
    if (operation == "addLibrary") return AddLibrary(request);
    if (operation == "removeLibrary") return RemoveLibrary(request);
    if (operation == "selectLibrary") return SelectLibrary(request);
    if (operation == "documents") return ListDocuments();
    if (operation == "subscribe") return json::object();
    throw MakeFailure("there is no such operation");
}

PanelProtocol::Answer PanelProtocol::Serve(const std::string& message)
{
    Answer answer;
    json id;
    json result;
    try {
        const json request = json::parse(message, nullptr, false);
        if (!request.is_object()) throw MakeFailure("the message isn't a JSON object");
        if (request.find("id") != request.end()) id = request.at("id");
        const std::string operation = ReadString(request, "op");
        result = ServeOperation(operation, request);
        answer.subscribes = operation == "subscribe";
        result["ok"] = true;
    } catch (const std::exception& failure) {
        result = json::object({{"ok", false}, {"error", failure.what()}});
    }
    if (!id.is_null()) result["id"] = std::move(id);
    answer.text = base::PrintJson(result);
    return answer;
}

PanelFontPiece PanelProtocol::ReadFont(const std::string& id, uint64_t offset)
{
    return ReadPanelFontPiece(mServices, id, offset);
}

// The libraries with the selection, and the number and the last of the indexed files.
std::string PanelProtocol::MakeMarkOfLibraries()
{
    std::string mark = mServices.folders.GetSelected() + '\n';
    for (const Library& library : mServices.folders.List()) mark += library.path + '\n';
    Statement index(mServices.database, "SELECT COUNT(*), MAX(id) FROM font_file");
    if (index.Step()) mark += index.GetText(0) + ' ' + index.GetText(1);
    return mark;
}

void PanelProtocol::BeginEvents()
{
    mMark = mServices.database.GetChangeMark();
    mActive = mServices.activation.GetActive();
    mLibraries = MakeMarkOfLibraries();
    mDocuments = MakeMarkOfDocuments(mServices);
    mWatched = mServices.folders.GetFolders();
    mWatch.Begin(mWatched, [this] {
        Names paths;
        for (const Library& library : mServices.folders.List()) paths.push_back(library.path);
        return paths;
    });
    mHasBegun = true;
}

std::vector<std::string> PanelProtocol::TakeEvents()
{
    if (!mHasBegun) {
        BeginEvents();
        return {};
    }
    std::string mark = mServices.database.GetChangeMark();
    const bool isChanged = mark != mMark;
    if (isChanged && mServices.folders.GetFolders() != mWatched) {
        mWatched = mServices.folders.GetFolders();
        mWatch.SetFolders(mWatched);
    }
    const bool hasOtherFolders = mWatch.HasChanged();
    if (!isChanged && !hasOtherFolders) return {};
    mMark = std::move(mark);
    Names events;
    std::set<std::string> active = mServices.activation.GetActive();
    if (active != mActive) {
        Names activated;
        Names deactivated;
        std::set_difference(active.begin(), active.end(), mActive.begin(), mActive.end(),
                            std::back_inserter(activated));
        std::set_difference(mActive.begin(), mActive.end(), active.begin(), active.end(),
                            std::back_inserter(deactivated));
        mActive = std::move(active);
        events.push_back(base::PrintJson(json::object(
            {{"event", "fonts"}, {"activated", activated}, {"deactivated", deactivated}})));
    }
    std::string libraries = MakeMarkOfLibraries();
    if (libraries != mLibraries) events.emplace_back(R"({"event":"libraries"})");
    mLibraries = std::move(libraries);
    std::string documents = MakeMarkOfDocuments(mServices);
    if (documents != mDocuments) events.emplace_back(R"({"event":"documents"})");
    mDocuments = std::move(documents);
    return events;
}

}  // namespace plugincore
