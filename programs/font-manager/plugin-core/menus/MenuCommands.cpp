#include "plugin-core/menus/MenuCommands.h"

#include <filesystem>
#include <iostream>
#include <sstream>

#include "base/Plural.h"
#include "plugin-core/activation/UnavailableFont.h"
#include "plugin-core/menus/FileManager.h"
#include "plugin-core/menus/MenuModel.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {

std::string MakeAboutText(Services& services)
{
    const FontLibrary::Counts counts = services.library.GetCounts();
    std::ostringstream text;
    text << "Font library: " << JoinNames(services.library.GetFolders()) << '\n'
         << counts.names << " fonts in " << counts.files << " files, " << counts.badFiles
         << " bad files skipped";
    return text.str();
}

MenuCommands::MenuCommands(Services& services, DocumentFonts& documents, Settings& settings,
                           std::function<void()> librariesChanged)
    : mServices(services),
      mDocuments(documents),
      mSettings(settings),
      mLibrariesChanged(std::move(librariesChanged))
{
}

void MenuCommands::Select(const std::string& id, const std::string& documentId,
                          const std::string& usage)
{
    if (id == MenuModel::kActivateFonts) return ActivateFonts(documentId, usage);
    if (id == MenuModel::kDeactivateUnused) return DeactivateUnused();
    if (id == MenuModel::kShowMissing) return ShowMissing(documentId, usage);
    if (id == MenuModel::kAddFolder) return AddFolder();
    if (id == MenuModel::kRevealLibrary) return RevealLibrary();
    if (id == MenuModel::kDialogSuppression) return ToggleDialogSuppression();
    if (id == MenuModel::kAbout) return ShowAlert("Corvanta Fonts", MakeAboutText(mServices));
    if (SelectMode(id) || ToggleLibrary(id)) return;
    throw Failure(StatusCodes::kNotFound, "no menu item has the id \"" + id + "\"");
}

std::string MenuCommands::GetPath(const std::string& documentId)
{
    std::string path =
        documentId.empty() ? documentId : mServices.documentStore.GetPath(documentId);
    if (path.empty()) {
        ShowAlert("Corvanta Fonts", "There is no document with a file. Save the document first.");
    }
    return path;
}

void MenuCommands::ActivateFonts(const std::string& documentId, const std::string& usage)
{
    const std::string path = GetPath(documentId);
    if (path.empty()) return;
    const DocumentFonts::Result result = mDocuments.ActivateAll(path, usage);
    std::string text = result.activated.empty() ? "No font had to be activated."
                                                : "Activated: " + JoinNames(result.activated) + ".";
    if (!result.missing.empty()) text += " Unavailable: " + JoinNames(result.missing) + ".";
    ShowAlert("Activate Document Fonts", text);
}

void MenuCommands::DeactivateUnused()
{
    const std::vector<std::string> names = mDocuments.ReleaseUnused();
    ShowAlert("Deactivate Unused Fonts",
              names.empty() ? "All fonts that were activated are used, or needed elsewhere."
                            : "Deactivated: " + JoinNames(names) + ".");
}

std::string MenuCommands::GetReason(const std::string& path, const std::string& name)
{
    const std::string file = mServices.library.FindAnywhere(name).value_or("");
    std::string reason = GetReasonUnavailable(mServices.library, name, file);
    if (reason == kUnreadableFile) return reason + ": " + file;
    if (!reason.empty()) return reason;
    if (GetActivationMode(mSettings, mServices.locations.settings) == ActivationMode::kOff) {
        return "in the font library; activation is off";
    }
    if (mDocuments.IsRefused(path, name)) {
        return "in the font library; not chosen for this document";
    }
    return "in the font library; not activated yet";
}

void MenuCommands::ShowMissing(const std::string& documentId, const std::string& usage)
{
    const std::string path = GetPath(documentId);
    if (path.empty()) return;
    // The user may have just copied the font into a library: the index must know it by now.
    mServices.ApplyLibraryChoice();
    mServices.library.Refresh();
    const Services::ActiveNames active = mServices.ListActive();
    std::string lines;
    size_t missing = 0;
    for (const std::string& name : mDocuments.GetFonts(path, usage)) {
        if (active.ours.count(name) + active.others.count(name) != 0) continue;
        lines += "\n" + name + ": " + GetReason(path, name);
        ++missing;
    }
    ShowAlert("Show Missing Fonts", missing == 0
                                        ? "All fonts of the document are active."
                                        : base::Count(missing, "font") + " missing" + lines);
}

void MenuCommands::AddFolder()
{
    constexpr const char* kTitle = "Add Font Folder";
    const std::string answer =
        IsInteractive() ? AskForText("Folder with fonts to add:", std::cin, std::cerr) : "";
    if (!IsInteractive() || (answer.empty() && !std::cin)) {
        ShowAlert(kTitle,
                  "There is no terminal to ask on. Run 'Vexcor add FOLDER', or put the folder "
                  "into the font library: " +
                      JoinNames(mServices.folders.GetRoots()));
        return;
    }
    if (answer.empty()) return;
    std::error_code error;
    // Folders are compared by path, so each must be stored under one spelling.
    const fs::path folder = fs::canonical(answer, error);
    if (error) return ShowAlert(kTitle, answer + ": " + error.message());
    if (!fs::is_directory(folder, error)) return ShowAlert(kTitle, answer + ": not a folder");
    if (!mServices.folders.Add(folder)) {
        return ShowAlert(kTitle, folder.string() + ": is in the font library already");
    }
    mServices.ApplyLibraryChoice();
    mServices.library.Refresh();
    mLibrariesChanged();
    const auto names = static_cast<size_t>(mServices.library.CountNames(folder));
    ShowAlert(kTitle, folder.string() + ": added, with " + base::Count(names, "font"));
}

void MenuCommands::RevealLibrary()
{
    const std::string selected = mServices.folders.GetSelected();
    const std::vector<std::string> folders =
        selected.empty() ? mServices.folders.GetFolders() : std::vector<std::string>{selected};
    if (!OpenInFileManager(folders)) ShowAlert("Reveal Font Library", JoinNames(folders));
}

void MenuCommands::ToggleDialogSuppression()
{
    const fs::path& file = mServices.locations.settings;
    const bool isOn = !IsSuppressionOn(mSettings.Get(file, kSuppressionSetting));
    mSettings.Set(file, kSuppressionSetting, isOn ? "1" : "2");
    // The plug-in reads the setting only when it starts.
    ShowAlert(
        "Hold Back Missing Fonts Dialog",
        std::string("From the next start on the dialog is ") + (isOn ? "held back." : "shown."));
}

bool MenuCommands::SelectMode(const std::string& id)
{
    for (const ActivationMode mode :
         {ActivationMode::kOff, ActivationMode::kAutomatic, ActivationMode::kAsk}) {
        if (id != MenuModel::kActivation + WriteActivationMode(mode)) continue;
        mSettings.Set(mServices.locations.settings, kActivationSetting, WriteActivationMode(mode));
        return true;
    }
    return false;
}

bool MenuCommands::ToggleLibrary(const std::string& id)
{
    for (const Library& library : mServices.folders.List()) {
        if (id != MakeLibraryId(library)) continue;
        const bool isSelected = mServices.folders.GetSelected() == library.path;
        mServices.folders.Select(isSelected ? std::string() : library.path);
        mServices.ApplyLibraryChoice();
        mLibrariesChanged();
        return true;
    }
    return false;
}

}  // namespace plugincore
