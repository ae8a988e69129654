#pragma once

#include <chrono>
#include <memory>

#include "plugin-core/documents/DocumentFonts.h"
#include "plugin-core/library/LibraryWatch.h"
#include "plugin-core/menus/MenuCommands.h"
#include "plugin-core/panel/PanelServer.h"
#include "plugin-core/panel/PanelWorker.h"
#include "plugin-core/services/Services.h"
#include "plugin-core/storage/Settings.h"

namespace plugincore {

// The state of PluginCore in this process: what exists from Start to Stop, and the settings, which
// can be read at any time. [main-thread]
class Core {
public:
    // What exists from Start to Stop. The constructor opens the database, repairs what a killed
    // process left and indexes the library. Throws Failure.
    struct Running {
        Running(const Locations& places, Settings& settings);

        // Opens the panel's socket at the first call and returns its port. Throws Failure.
        int GetPanelPort();

        // Closes the panel's socket. Waits for the request that is being served.
        void ClosePanel();

        Services services;
        DocumentFonts documents;
        LibraryWatch watch;
        MenuCommands commands;
        std::unique_ptr<PanelWorker> panelWorker;  // null until the first GetPanelPort
        std::unique_ptr<PanelServer> panel;        // the same
        std::chrono::steady_clock::time_point lastRepair;
    };

    // Idempotent: a second call without a Stop does nothing. Throws Failure.
    void Start();

    // Releases this process's holds, deactivates fonts that no process holds and closes the panel's
    // socket. Does nothing without a Start. Throws Failure; Core is stopped even then.
    void Stop();

    // Throws Failure with kNotInitialized before Start and after Stop. The reference is valid until
    // Stop.
    Running& GetRunning();

    // The same, or null.
    Running* FindRunning() { return mRunning.get(); }

    Settings& GetSettings() { return mSettings; }

    // The callback that Idle calls after libraries were added or removed.
    void SetRebuildCallback(void (*callback)()) { mRebuild = callback; }

    // Repairs what a killed process left, at most twice per second, releases documents that were
    // closed without a close event, and announces added or removed libraries. Does nothing while
    // stopped. Throws Failure.
    void Idle();

private:
    Settings mSettings;
    std::unique_ptr<Running> mRunning;
    void (*mRebuild)() = nullptr;
};

// The only instance of this process.
Core& GetCore();

}  // namespace plugincore
