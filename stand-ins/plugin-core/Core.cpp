#include "Core.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "ActiveFonts.h"
#include "FontJson.h"
#include "Menus.h"
#include "OpenDocument.h"
#include "ProcessIdentity.h"
#include "StatusCodes.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

// fontconfig tells a file by the folder as it is configured, which may lead to ours by a link.
bool IsBelow(const std::string& file, const fs::path& folder)
{
    const std::string prefix = folder.lexically_normal().string() + "/";
    if (file.compare(0, prefix.size(), prefix) == 0) return true;
    if (file.find("/" + folder.filename().string() + "/") == std::string::npos) return false;
    std::error_code error;
    const std::string real = fs::weakly_canonical(folder, error).string() + "/";
    const std::string realFile = fs::weakly_canonical(fs::path(file).parent_path(), error).string();
    return !error && realFile.compare(0, real.size(), real) == 0;
}

std::string Join(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

// Only those that the user named can be missing by mistake.
void ReportMissingLibraries(const Locations& locations)
{
    if (locations.librariesAreDefault) return;
    for (const std::string& folder : locations.libraries) {
        std::error_code error;
        if (fs::is_directory(folder, error)) continue;
        Report(folder + ": no font library: " + (error ? error.message() : "not a folder"));
    }
}

}  // namespace

Core& GetCore()
{
    static Core core;
    return core;
}

Core::Running::Running(const Locations& places)
    : locations(places),
      database(locations.database),
      library(database, locations.libraries),
      activation(database, library, ActivationFolder(locations.activationFolder),
                 GetIdentityOfThisProcess()),
      documents(database, GetIdentityOfThisProcess())
{
}

Core::Running& Core::GetRunning()
{
    if (!mRunning) throw Failure(StatusCodes::kNotInitialized, "called while it isn't started");
    return *mRunning;
}

void Core::Start()
{
    if (mRunning) return;
    auto running = std::make_unique<Running>(GetLocations());
    running->activation.Repair();
    running->documents.ForgetBlanks();
    ReportMissingLibraries(running->locations);
    running->library.Refresh();
    mRunning = std::move(running);
}

void Core::Stop()
{
    if (!mRunning) return;
    const std::unique_ptr<Running> running = std::move(mRunning);
    running->activation.ReleaseAll();
    running->documents.ForgetBlanks();
}

bool Core::IsEnabled() { return mSettings.Get(GetLocations().settings, "PluginEnabled") != "0"; }

std::string Core::GetSettings() { return mSettings.GetAsJson(GetLocations().settings); }

std::string Core::GetMenus() { return MakeMenus(GetLocations().libraries); }

std::string Core::GetAboutText()
{
    const FontLibrary::Counts counts = GetRunning().library.GetCounts();
    std::ostringstream text;
    text << "Font library: " << Join(GetRunning().library.GetFolders()) << '\n'
         << counts.names << " fonts in " << counts.files << " files, " << counts.badFiles
         << " bad files skipped";
    return text.str();
}

Core::ActiveNames Core::ListActive()
{
    ActiveNames names;
    const fs::path& folder = GetRunning().activation.GetFolder().GetPath();
    for (const fonts::ActiveFont& font : fonts::ListActiveFonts())
        (IsBelow(font.file, folder) ? names.ours : names.others).insert(font.postScriptName);
    return names;
}

std::optional<std::vector<std::string>> Core::ReadFontsOfFile(const std::string& path)
{
    const documents::OpenResult result = documents::OpenDocument(path);
    if (!result.ok) return std::nullopt;  // the host reads the file next and tells what is wrong
    return result.document.fonts;
}

std::vector<std::string> Core::KeepThoseInLibrary(const std::vector<std::string>& names)
{
    FontLibrary& library = GetRunning().library;
    const auto isKnown = [&library](const std::string& name) {
        return library.Find(name).has_value();
    };
    if (!std::all_of(names.begin(), names.end(), isKnown)) library.Refresh();
    std::vector<std::string> found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found), isKnown);
    return found;
}

std::string Core::OpenDocument(const std::string& path, const std::string& fontsJson)
{
    Running& running = GetRunning();
    if (fontsJson.empty())
        mRefusals.Begin(path);
    else
        mRefusals.Continue(path);
    std::optional<std::vector<std::string>> names;
    if (fontsJson.empty())
        names = ReadFontsOfFile(path);
    else
        names = ReadFontNames(fontsJson);
    if (!names) return {};
    running.documents.Remember(path);
    if (names->empty()) return {};

    const std::set<std::string> held = running.activation.Hold(path, *names);
    const ActiveNames active = ListActive();
    // Somebody may have cleared the folder meanwhile.
    if (!std::includes(active.ours.begin(), active.ours.end(), held.begin(), held.end()))
        running.activation.Repair();
    std::vector<std::string> wanted;
    std::copy_if(names->begin(), names->end(), std::back_inserter(wanted), [&](const auto& name) {
        return held.count(name) == 0 && active.others.count(name) == 0;
    });
    return WriteFontNames(KeepThoseInLibrary(wanted));
}

std::string Core::Resolve(const std::string& fontsJson)
{
    const std::vector<std::string> names = ReadFontNames(fontsJson);
    if (!IsInteractive()) return fontsJson;
    std::vector<std::string> open;
    std::copy_if(names.begin(), names.end(), std::back_inserter(open),
                 [this](const std::string& name) { return !mRefusals.Has(name); });
    const std::vector<std::string> chosen = AskForFonts(open, std::cin, std::cerr);
    for (const std::string& name : open)
        if (std::find(chosen.begin(), chosen.end(), name) == chosen.end()) mRefusals.Add(name);
    return WriteFontNames(chosen);
}

int Core::ActivateFonts(const std::string& path, const std::string& fontsJson)
{
    Running& running = GetRunning();
    const std::vector<std::string> names = ReadFontNames(fontsJson);
    const ActiveNames before = ListActive();
    std::vector<std::string> wanted;
    std::copy_if(names.begin(), names.end(), std::back_inserter(wanted),
                 [&](const std::string& name) { return before.others.count(name) == 0; });
    if (wanted.empty()) return 0;

    const Activation::Outcome outcome = running.activation.Activate(path, wanted);
    if (!outcome.failed.empty())
        throw Failure(StatusCodes::kNotFound,
                      "no readable file of the font library has " + Join(outcome.failed));
    if (outcome.activated.empty()) return 0;
    const ActiveNames after = ListActive();
    std::vector<std::string> unseen;
    std::copy_if(outcome.activated.begin(), outcome.activated.end(), std::back_inserter(unseen),
                 [&](const std::string& name) { return after.ours.count(name) == 0; });
    if (!unseen.empty())
        throw Failure(StatusCodes::kError,
                      running.locations.activationFolder.string() +
                          ": fontconfig doesn't see what is activated there: " + Join(unseen));
    return static_cast<int>(outcome.activated.size());
}

void Core::CloseDocument(const std::string& path, const std::string& usage)
{
    Running& running = GetRunning();
    mRefusals.Forget(path);
    running.activation.Release(path);
    if (!usage.empty()) running.documents.StoreUsage(path, usage);
}

void Core::SaveDocument(const std::string& path, const std::string& usage)
{
    GetRunning().documents.StoreUsage(path, usage);
}

std::string Core::GetDocumentId(const std::string& path)
{
    return GetRunning().documents.GetId(path);
}

std::string Core::AddBlankDocument() { return GetRunning().documents.AddBlank(); }

void Core::UpdateUsage(const std::string& id, const std::string& usage)
{
    if (!GetRunning().documents.StoreUsageOfId(id, usage))
        throw Failure(StatusCodes::kNotFound, "no document has the id \"" + id + "\"");
}

}  // namespace plugincore
