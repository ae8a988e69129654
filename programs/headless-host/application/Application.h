#pragma once

#include <memory>
#include <string>

#include "application/DocumentCommands.h"
#include "application/MessagePump.h"
#include "application/OpenReport.h"
#include "application/PluginModule.h"
#include "model/Host.h"

namespace headless {

// The host application around one plug-in, from its start to its shutdown. Sends the plug-in the
// messages of a real host in the order of a real host. Main thread only.
//
// Of the member functions only Start and ShutDown may be called before Start has returned true.
class Application {
public:
    static constexpr int kTicksPerSecond = 60;

    // Resets the platform table that the plug-in finds in this executable.
    //
    // host       must outlive the application
    // language   of the host's dialogs: a tag of kHostLanguages
    Application(Host& host, std::string language);

    // Calls ShutDown.
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // The language of the dialogs from now on: a tag of kHostLanguages.
    void SetLanguage(const std::string& language) { mLanguage = language; }

    // Loads the plug-in, sends it Startup and, if it runs, the application-started notifier.
    //
    // pluginPath   the module, or a folder X.aip with the module X in it
    // Returns false, with one line in `error`, if the plug-in cannot be loaded or refuses to run.
    bool Start(const std::string& pluginPath, std::string& error);

    // Opens one file: sends the check messages, reads the file, runs the missing-fonts dialog, adds
    // the document and sends the opened notifier. The document remains open.
    //
    // path        absolute
    // givenPath   the path for the report
    // A file that cannot be opened is reported in the result; then there is no document.
    OpenReport Open(const std::string& path, const std::string& givenPath);

    // Everything else that is done with documents.
    DocumentCommands& Documents() { return *mDocuments; }

    // For messages of scripts; null before Start.
    MessagePump* Pump() { return mPump.get(); }

    // Sends an update message for each menu item that asks for it, as when the user opens the menu.
    void UpdateMenus();

    // Chooses a menu item, given as its handle.
    void Choose(void* menuItem);

    // Asks the plug-in to show its about box.
    void ShowAbout();

    // Refreshes the host's list of active fonts and notifies the plug-in that it has changed.
    void NotifyFontsChanged();

    // Performs one tick of the host's clock, which has kTicksPerSecond: sends the timer messages
    // that are due.
    void Tick();

    // Ticks for `seconds`, or until an interrupt.
    void Idle(double seconds);

    // Closes all documents in the order they were opened, shuts the plug-in down, unloads it and
    // records what it has not released as violations. Idempotent.
    void ShutDown();

private:
    Host& mHost;
    std::string mLanguage;
    std::unique_ptr<PluginModule> mModule;
    std::unique_ptr<MessagePump> mPump;
    std::unique_ptr<DocumentCommands> mDocuments;
    bool mRunning = false;
    long mWindowNumber = 0;
    unsigned long mTick = 0;
};

// Runs the missing-fonts dialog in a modal session, as the plug-in lets it: through the platform
// table.
//
// title   out: the dialog's title
DialogOutcome RunMissingFontsDialog(Host& host, const std::string& language, long windowNumber,
                                    std::string& title);

// What follows the message "Unload", the last one: unloads the module, unless it refused, and
// records what the plug-in has not released as violations.
//
// unloaded   the plug-in's answer to the message
void FinishUnload(Host& host, std::unique_ptr<PluginModule> module, AIErr unloaded);

}  // namespace headless
