#pragma once

#include <functional>
#include <string>

#include "plugin-core/documents/DocumentFonts.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Settings.h"

namespace plugincore {

// Runs the commands of the menu items. Each shows its result in the host's alert, except where the
// user sees it elsewhere: in the menu, or in the desktop's file manager. [main-thread]
class MenuCommands {
public:
    // `librariesChanged` is called after a command changed the set of libraries or the selected
    // library. The references have to outlive this object.
    MenuCommands(Services& services, DocumentFonts& documents, Settings& settings,
                 std::function<void()> librariesChanged);

    // Runs the command of the item `id`.
    //
    // documentId  the document that the user sees, or ""
    // usage       its usage report, or ""; only parsed by commands that need its fonts
    // Throws Failure, with kNotFound for an unknown id.
    void Select(const std::string& id, const std::string& documentId, const std::string& usage);

private:
    std::string GetPath(const std::string& documentId);
    void ActivateFonts(const std::string& documentId, const std::string& usage);
    void DeactivateUnused();
    void ShowMissing(const std::string& documentId, const std::string& usage);
    std::string GetReason(const std::string& path, const std::string& name);
    void AddFolder();
    void RevealLibrary();
    void ToggleDialogSuppression();
    bool SelectMode(const std::string& id);
    bool ToggleLibrary(const std::string& id);

    Services& mServices;
    DocumentFonts& mDocuments;
    Settings& mSettings;
    std::function<void()> mLibrariesChanged;
};

// The text of the about box, without its title.
std::string MakeAboutText(Services& services);

}  // namespace plugincore
