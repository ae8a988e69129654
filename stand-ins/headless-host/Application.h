#pragma once

#include <memory>
#include <string>
#include <vector>

#include "GuestModule.h"
#include "Host.h"
#include "MessagePump.h"

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

    void Close(DocumentObject* document);

    // Closes all documents in the order they were opened, ends the guest and lists what it hasn't
    // given back among the host's errors. Does nothing the second time.
    void ShutDown();

private:
    DialogOutcome RunMissingFontsDialog(std::string& title);

    Host& mHost;
    std::string mLanguage;
    std::unique_ptr<GuestModule> mModule;
    std::unique_ptr<MessagePump> mPump;
    bool mRunning = false;
    long mWindowNumber = 0;
};

}  // namespace headless
