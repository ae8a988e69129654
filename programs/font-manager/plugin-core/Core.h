#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "plugin-core/documents/ActivationMode.h"
#include "plugin-core/documents/DocumentFonts.h"
#include "plugin-core/library/LibraryWatch.h"
#include "plugin-core/menus/MenuCommands.h"
#include "plugin-core/panel/PanelProtocol.h"
#include "plugin-core/panel/PanelServer.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Settings.h"

namespace plugincore {

// All of PluginCore behind its functions, in C++ terms: texts instead of buffers, Failure instead
// of statuses. Main thread only, one call at a time. What documents, menus and the panel may expect
// stands with DocumentFonts, MenuCommands and PanelServer.
//
// Between Start and Stop there is a services; what needs it throws Failure with kNotInitialized at
// other times. Settings and menus work at any time.
class Core {
public:
    // Opens the database, repairs what a killed process left and indexes the library. A second
    // start without a stop does nothing.
    void Start();

    // Drops this process's holds, deactivates what nobody holds and closes the panel's socket.
    // Without a start, does nothing.
    void Stop();

    bool IsEnabled();
    std::string GetSettings();

    // The menu tree; `documentPath` is empty if there is no document.
    std::string GetMenus(const std::string& documentPath);
    void SelectMenu(const std::string& id, const std::string& documentId,
                    const std::string& fontsJson);
    std::string GetAboutText();

    std::string OpenDocument(const std::string& path, const std::string& fontsJson);
    std::string Resolve(const std::string& fontsJson);
    int ActivateFonts(const std::string& path, const std::string& fontsJson);
    void CloseDocument(const std::string& path, const std::string& usage);
    void SaveDocument(const std::string& path, const std::string& usage);
    std::string GetDocumentId(const std::string& path);
    std::string AddBlankDocument();
    void UpdateUsage(const std::string& id, const std::string& usage);

    // Called from Idle when libraries came or went.
    void SetRebuildCallback(void (*callback)()) { mRebuild = callback; }

    // Also looks, at times, whether another process was killed, and puts right what it left.
    void Idle();

    // The port of the panel's socket, which the first call opens.
    int GetPanelPort();
    void ServePanel();

private:
    struct Running {
        Running(const Locations& places, Settings& settings);

        Services services;
        DocumentFonts documents;
        LibraryWatch watch;
        PanelProtocol panelProtocol;
        MenuCommands commands;
        std::unique_ptr<PanelServer> panel;
        std::chrono::steady_clock::time_point lastLook;  // for programs that are gone
    };

    Running& GetRunning();
    void LookForGonePrograms();
    ActivationMode GetMode();

    Settings mSettings;
    std::unique_ptr<Running> mRunning;
    void (*mRebuild)() = nullptr;
};

// The one of this process.
Core& GetCore();

}  // namespace plugincore
