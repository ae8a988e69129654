#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Activation.h"
#include "Database.h"
#include "Dialogs.h"
#include "DocumentStore.h"
#include "FontLibrary.h"
#include "Locations.h"
#include "Settings.h"

namespace plugincore {

// All of PluginCore behind its functions, in C++ terms: texts instead of buffers, Failure instead
// of statuses. Main thread only, one call at a time.
//
// Between Start and Stop there is a database, a library and the folder of active fonts; what needs
// them throws Failure with kNotInitialized at other times. Settings and menus work at any time.
class Core {
public:
    // Opens the database, repairs what a killed process left and indexes the library. A second
    // start without a stop does nothing.
    void Start();

    // Drops this process's holds and deactivates what nobody holds. Without a start, does nothing.
    void Stop();

    bool IsEnabled();
    std::string GetSettings();
    std::string GetMenus();
    std::string GetAboutText();

    // `fontsJson` is the document's fonts, or empty to have them read from the file. Returns those
    // that aren't active and are in the library, as JSON in the document's order, or the empty
    // text. Of the fonts that PluginCore activated already, the document becomes a holder.
    std::string OpenDocument(const std::string& path, const std::string& fontsJson);

    // The fonts that the user wants of those in the text, as JSON, or the empty text. Keeps the
    // text as it is unless the user is to be asked, on standard error and standard input.
    std::string Resolve(const std::string& fontsJson);

    // Activates the fonts for the document; returns how many weren't visible before. Throws Failure
    // if one couldn't be activated; the others are then active all the same.
    int ActivateFonts(const std::string& path, const std::string& fontsJson);

    // Drops the document's holds in this process.
    void CloseDocument(const std::string& path, const std::string& usage);

    void SaveDocument(const std::string& path, const std::string& usage);
    std::string GetDocumentId(const std::string& path);
    std::string AddBlankDocument();
    void UpdateUsage(const std::string& id, const std::string& usage);

private:
    struct Running {
        explicit Running(const Locations& places);

        Locations locations;
        Database database;
        FontLibrary library;
        Activation activation;
        DocumentStore documents;
    };
    struct ActiveNames {
        std::set<std::string> ours;    // through our folder
        std::set<std::string> others;  // without us
    };

    Running& GetRunning();
    ActiveNames ListActive();
    std::vector<std::string> KeepThoseInLibrary(const std::vector<std::string>& names);
    std::optional<std::vector<std::string>> ReadFontsOfFile(const std::string& path);

    std::unique_ptr<Running> mRunning;
    Settings mSettings;
    Refusals mRefusals;
};

// The one of this process.
Core& GetCore();

}  // namespace plugincore
