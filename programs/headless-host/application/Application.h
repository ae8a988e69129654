#pragma once

#include <memory>
#include <string>
#include <vector>

#include "application/MessagePump.h"
#include "application/PluginModule.h"
#include "model/Host.h"

namespace headless {

enum class FontState { kDefault, kActive, kActivated, kMissing };
enum class DialogOutcome { kNone, kDismissed, kShown };

struct FontReport {
    std::string postScriptName;
    FontState state;
};

// What became of one file.
struct OpenReport {
    std::string path;  // as the user gave it
    bool opened = false;
    std::string error;  // one line without the path; empty if opened
    std::string kind;
    std::string reader;  // which reader answered; empty if none did
    std::string note;    // what it couldn't make use of, or why others couldn't; one line
    size_t frames = 0;
    size_t runs = 0;
    std::vector<FontReport> fonts;
    std::vector<std::string> linkedDocuments;
    DialogOutcome dialog = DialogOutcome::kNone;
    std::string dialogTitle;
    long elapsedMs = 0;

    bool HasMissingFont() const;
};

// The life of the host application around its guest, in the order of a real host.
class Application {
public:
    Application(Host& host, std::string language) : mHost(host), mLanguage(std::move(language)) {}

    // Shuts down if that hasn't been done.
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Loads the guest, sends startup and, if the guest runs, the application-started notifier.
    // False, and one line in `error`, if the guest can't be loaded or refuses to run; then it only
    // remains to shut down.
    bool Start(const std::string& pluginPath, std::string& error);

    // Opens one file: the check, the reading, the missing-fonts dialog, the opened notifier. The
    // document stays open. `path` is absolute, `givenPath` what the report calls it.
    OpenReport Open(const std::string& path, const std::string& givenPath);

    // A new document without a file.
    DocumentObject* New();

    // What becomes of a document's font at this moment, as its report tells it.
    FontState GetFontState(const DocumentObject& document, const std::string& postScriptName);

    // Changes of the current document, which must be there; the guest is told of each.
    void AddText(const std::string& postScriptName, const std::string& words);
    void Place(const std::string& path);
    void Change();

    // Saves the current document under its own name, or under another one (an absolute path) that
    // is its own from then on. Returns one line that says why it failed, without the path; then
    // all stays as it was and the guest is told nothing.
    std::string Save();
    std::string SaveAs(const std::string& path);

    // The guest is told before the document goes and when it is gone. It needn't be the current
    // one.
    void Close(DocumentObject* document);

    // The user looks at the menus: the items that want to be asked are brought up to date.
    void UpdateMenus();

    // The user chooses an item.
    void Choose(void* menuItem);

    void ShowAbout();

    // Somebody installed or removed fonts.
    void TellFontsChanged();

    // One tick of the host's clock, 60 to the second: the timers.
    void Tick();

    // Ticks for so long; an interrupt ends it.
    void Idle(double seconds);

    static constexpr int kTicksPerSecond = 60;

    // Closes all documents in the order they were opened, ends the guest and lists what it hasn't
    // given back among the host's errors. Does nothing the second time.
    void ShutDown();

private:
    void Notify(const char* type, void* notifyData);
    void TellMenuChanges();
    void TellSaved(const char* type);
    DialogOutcome RunMissingFontsDialog(std::string& title);

    Host& mHost;
    std::string mLanguage;
    std::unique_ptr<PluginModule> mModule;
    std::unique_ptr<MessagePump> mPump;
    bool mRunning = false;
    long mWindowNumber = 0;
    unsigned long mTick = 0;
    size_t mToldMenuChanges = 0;
};

}  // namespace headless
