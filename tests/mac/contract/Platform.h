#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What the contract tests need of a platform beside the product: each of them is compiled against
// the files of either one. Where an answer differs, and may, it differs by one of these names.
namespace Platform {

// Any folder opens as a bundle, and what is in it counts at the look-up only.
extern const bool kEveryFolderIsABundle;

// The date of a link is the date of what it leads to.
extern const bool kDateFollowsLinks;

// A date in front of 2001 loses its fraction towards the later second.
extern const bool kEarlyDateIsCutUpwards;

// The empty text stands in every title.
extern const bool kFindsEmptyText;

// A path comes with its letters and accents apart.
extern const bool kDecomposesPaths;

// A byte order mark in front of a path is lost.
extern const bool kDropsByteOrderMark;

// What a leading tilde becomes.
std::string HomeFolder();

// The user's library folder, which a test may write to; empty if it may not.
std::string LibraryFolder();

// The path of an executable that the platform lists as running.
std::string RunningExecutable();

// The folder from which the host's private frameworks are taken from now on.
void UsePrivateFrameworks(const std::string& folder);

struct ShownAlert {
    std::string messageText;
    std::string informativeText;
};

// Runs `body`; each alert that it shows is kept and dismissed.
std::vector<ShownAlert> AlertsOf(const std::function<void()>& body);

// References to the platform's objects that are out. Constant where there are none.
long LiveReferences();

struct KeyEvent {
    int type;
    double x, y;
    unsigned long modifierFlags;
    double timestamp;
    long windowNumber;
    std::string characters;
    std::string charactersIgnoringModifiers;
    bool isARepeat;
    unsigned short keyCode;
};

// A window that keeps the key events it gets, and dismisses itself at the first one.
class Dialog {
public:
    enum class Kind { kDialogOfHost, kSubclassOfIt, kOrdinary };

    explicit Dialog(const std::string& title, Kind kind = Kind::kDialogOfHost);
    ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Begins a modal session as the host does, and ends it. Whether the platform's own function
    // began it, with this window, and its answer came back.
    bool RunSession();

    const std::vector<KeyEvent>& Events() const;
    long Number() const;
    bool IsDismissed() const;
    void OnEvent(std::function<void()> action);

    // To be called once, in front of the plug-in's hook: the platform's own function is watched.
    static void WatchSessions();

    // The sessions that it has begun since, in order.
    static std::vector<const Dialog*> Sessions();

    struct Window;

private:
    std::unique_ptr<Window> mWindow;
};

// Throws what the platform's windows throw.
[[noreturn]] void ThrowAsAWindow(const std::string& reason);

}  // namespace Platform
