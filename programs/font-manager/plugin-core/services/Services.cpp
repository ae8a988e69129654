#include "plugin-core/services/Services.h"

#include <algorithm>
#include <filesystem>

#include "documents/model/FontName.h"
#include "fonts/ActiveFonts.h"
#include "plugin-core/services/HostDrawings.h"
#include "plugin-core/storage/ErrorLog.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

// fontconfig reports a file below the folder that its configuration names, which may be a symbolic
// link to ours. The real paths are compared only if the folder's name occurs at all: that costs
// several system calls for each font.
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

// A missing default library is normal; one that the user named is a mistake.
void ReportMissingLibraries(const Locations& locations)
{
    if (locations.librariesAreDefault) return;
    for (const std::string& folder : locations.libraries) {
        std::error_code error;
        if (fs::is_directory(folder, error)) {
            const fs::directory_iterator entry(folder, error);
            if (error) LogError(folder + ": cannot be read: " + error.message());
            continue;
        }
        LogError(folder + ": not a font library: " + (error ? error.message() : "not a folder"));
    }
}

}  // namespace

Services::Services(const Locations& places)
    : locations(places),
      database(locations.database),
      folders(database, locations.libraries),
      library(database, {}),
      programs(database, GetIdentityOfThisProcess()),
      activation(database, library, programs, ActivationFolder(locations.activationFolder),
                 GetIdentityOfThisProcess()),
      documentStore(database, GetIdentityOfThisProcess())
{
    ShareDrawingsWithHost();
}

Activation::Repairs Services::Start(const std::string& programName)
{
    programs.Enter(programName);
    ApplyLibraryChoice();
    Activation::Repairs repairs = activation.Repair();
    documentStore.ForgetBlanks();
    ReportMissingLibraries(locations);
    library.Refresh();
    return repairs;
}

void Services::Stop()
{
    activation.ReleaseAll();
    documentStore.ForgetBlanks();
    programs.Leave();
}

void Services::ApplyLibraryChoice()
{
    library.SetFolders(folders.GetFolders());
    library.SetSelection(folders.GetSelected());
}

Services::ActiveNames Services::ListActive() const
{
    ActiveNames names;
    for (const auto& [name, active] : ListActiveFiles()) {
        (active.isOurs ? names.ours : names.others).insert(name);
    }
    return names;
}

std::multimap<std::string, Services::ActiveFile> Services::ListActiveFiles() const
{
    std::multimap<std::string, ActiveFile> files;
    const fs::path& folder = activation.GetFolder().GetPath();
    for (const fonts::ActiveFont& font : fonts::ListActiveFonts()) {
        files.insert({font.postScriptName, {font.file, IsBelow(font.file, folder)}});
    }
    return files;
}

std::vector<std::string> Services::SelectFromLibrary(const std::vector<std::string>& names)
{
    ApplyLibraryChoice();
    std::vector<std::string> found = library.SelectKnown(names);
    if (found.size() == names.size()) return found;
    library.Refresh();
    return library.SelectKnown(names);
}

std::vector<std::string> Services::MatchFontNames(const std::vector<std::string>& names)
{
    const auto hasSuffix = [](const std::string& name) {
        return documents::HasEncodingSuffix(name);
    };
    // The active fonts are listed only for the few documents that need it.
    if (std::none_of(names.begin(), names.end(), hasSuffix)) return names;
    const ActiveNames active = ListActive();
    (void)SelectFromLibrary(names);  // updates the index, once for all names
    const auto exists = [&](const std::string& name) {
        return active.ours.count(name) != 0 || active.others.count(name) != 0 ||
               library.Find(name).has_value();
    };
    std::vector<std::string> matched;
    std::set<std::string> added;
    for (const std::string& name : names) {
        std::string font = documents::ChooseFontName(name, exists);
        if (added.insert(font).second) matched.push_back(std::move(font));
    }
    return matched;
}

std::string JoinNames(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

}  // namespace plugincore
