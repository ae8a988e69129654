#include "Platform.h"

#include <cstdlib>
#include <filesystem>

#include "FakeWindow.h"
#include "ScratchFolder.h"
#include "ScriptedHost.h"

namespace Platform {

const bool kEveryFolderIsABundle = false;
const bool kDateFollowsLinks = true;
const bool kEarlyDateIsCutUpwards = false;
const bool kFindsEmptyText = false;
const bool kDecomposesPaths = false;
const bool kDropsByteOrderMark = false;
const bool kFileNamesAreUTF8 = false;
const bool kMayCleanPaths = false;
const bool kCountsReferences = false;

namespace {

ScriptedHost& Host()
{
    static ScriptedHost host;
    return host;
}

std::vector<const Dialog*> gSessions;

}  // namespace

std::string HomeFolder()
{
    const char* const home = std::getenv("HOME");
    return home != nullptr ? home : "";
}

std::string LibraryFolder()
{
    static const ScratchFolder sFolder;
    return setenv("XDG_DATA_HOME", sFolder.Path().c_str(), 1) == 0 ? sFolder.Path() : "";
}

std::string RunningExecutable() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

void UsePrivateFrameworks(const std::string& folder) { Host().privateFrameworksPath = folder; }

std::vector<ShownAlert> AlertsOf(const std::function<void()>& body)
{
    Host().alerts.clear();
    body();
    std::vector<ShownAlert> alerts;
    for (const ScriptedAlert& alert : Host().alerts) {
        alerts.push_back({alert.messageText, alert.informativeText});
    }
    return alerts;
}

long LiveReferences() { return 0; }

struct Dialog::Window : FakeWindow {
    Window(const Dialog* dialog, const std::string& title, Kind kind)
        : FakeWindow(title, kind == Kind::kOrdinary ? "NSPanel" : "DVAMacDialog"), owner(dialog)
    {
    }
    void SendEvent(const SKeyEvent& event) override
    {
        kept.push_back({event.type, event.x, event.y, event.modifierFlags, event.timestamp,
                        event.windowNumber, event.characters, event.charactersIgnoringModifiers,
                        event.isARepeat, event.keyCode});
        FakeWindow::SendEvent(event);
    }

    const Dialog* owner;
    std::vector<KeyEvent> kept;
};

Dialog::Dialog(const std::string& title, Kind kind)
    : mWindow(std::make_unique<Window>(this, title, kind))
{
}

Dialog::~Dialog() = default;

bool Dialog::RunSession()
{
    const ModalSession session = GetHostPlatform()->beginModalSession(mWindow.get());
    if (Host().modalSessions.empty() || Host().modalSessions.back() != mWindow.get()) return false;
    gSessions.push_back(this);
    return session == reinterpret_cast<ModalSession>(0x5E5510 + Host().modalSessions.size());
}

const std::vector<KeyEvent>& Dialog::Events() const { return mWindow->kept; }

long Dialog::Number() const { return mWindow->GetWindowNumber(); }

bool Dialog::IsDismissed() const { return !mWindow->kept.empty(); }

void Dialog::OnEvent(std::function<void()> action) { mWindow->onSendEvent = std::move(action); }

// The scripted host always records its modal sessions; it only has to exist.
void Dialog::WatchSessions() { (void)Host(); }

std::vector<const Dialog*> Dialog::Sessions() { return gSessions; }

void ThrowAsAWindow(const std::string& reason) { throw ModalWindowException(reason); }

}  // namespace Platform
