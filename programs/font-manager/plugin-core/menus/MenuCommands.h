#pragma once

#include <functional>
#include <string>

#include "plugin-core/documents/DocumentFonts.h"
#include "plugin-core/menus/MenuModel.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Settings.h"

namespace plugincore {

// Does what the menu's items stand for. What comes of a command is told on the host's alert.
class MenuCommands {
public:
    // `librariesChanged` is called when a command changed which libraries there are or which one is
    // selected. All references have to outlive this object.
    MenuCommands(Services& services, DocumentFonts& documents, Settings& settings,
                 std::function<void()> librariesChanged);

    // `documentId` and `fontsJson`, the document's fonts, may be empty. Throws Failure, with
    // kNotFound for an id that no item has.
    void Select(const std::string& id, const std::string& documentId, const std::string& fontsJson);

private:
    std::string GetPath(const std::string& documentId);
    void ActivateFonts(const std::string& documentId, const std::string& fontsJson);
    void DeactivateUnused();
    void ShowMissing(const std::string& documentId, const std::string& fontsJson);
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

// What the about box says beside its title.
std::string MakeAboutText(Services& services);

// Whether the host's missing-fonts dialog is held back, by the setting's text: 2 and more mean no.
constexpr const char* kSuppressionSetting = "DialogSuppression";
bool IsSuppressionOn(const std::string& setting);

}  // namespace plugincore
