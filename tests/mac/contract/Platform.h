#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What the contract tests need from a platform, in addition to the product's own platform files.
// The same tests are compiled once per platform; the constants below name every permitted
// difference.
namespace Platform {

// True if every folder opens as a bundle, and a missing library is noticed only when a function is
// looked up.
extern const bool kEveryFolderIsABundle;

// True if the date of a symbolic link is the date of its target.
extern const bool kDateFollowsLinks;

// True if the fraction of a date before 2001 is rounded up to the later second.
extern const bool kEarlyDateIsCutUpwards;

// True if every title contains the empty string.
extern const bool kFindsEmptyText;

// True if paths are returned in decomposed form, as letter and combining accent.
extern const bool kDecomposesPaths;

// True if a byte order mark at the start of a path is dropped.
extern const bool kDropsByteOrderMark;

// True if the file system refuses file names that aren't UTF-8.
extern const bool kFileNamesAreUTF8;

// True if it isn't known whether the platform keeps a byte order mark at the start of a path and
// double slashes in it. Tests accept both and print what they have seen.
extern const bool kMayCleanPaths;

// Returns the folder that replaces a leading tilde.
std::string HomeFolder();

// Returns the user's library folder if a test may write to it, otherwise "".
std::string LibraryFolder();

// Returns the path of an executable that the platform lists as running.
std::string RunningExecutable();

// Makes `folder` the folder of the host's private frameworks.
void UsePrivateFrameworks(const std::string& folder);

struct ShownAlert {
    std::string messageText;
    std::string informativeText;
};

// Runs `body`, dismisses each alert that it shows and returns the alerts in order.
std::vector<ShownAlert> AlertsOf(const std::function<void()>& body);

// True if LiveReferences counts. Where it doesn't, tests of nothing else are skipped.
extern const bool kCountsReferences;

// Returns the number of references to platform objects that haven't been released; 0 where
// references cannot be counted.
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

// A window that records the key events that it receives. The first one dismisses it.
class Dialog {
public:
    enum class Kind { kDialogOfHost, kSubclassOfIt, kOrdinary };

    explicit Dialog(const std::string& title, Kind kind = Kind::kDialogOfHost);
    ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Begins a modal session for this window as the host does, and ends it. Returns true if the
    // platform's own function was called with this window and its result was returned.
    bool RunSession();

    const std::vector<KeyEvent>& Events() const;
    long Number() const;
    bool IsDismissed() const;
    void OnEvent(std::function<void()> action);

    // Records the calls of the platform's own function from now on. Call it once, before the
    // plug-in installs its hook.
    static void WatchSessions();

    // Returns the dialogs whose sessions have begun, in order.
    static std::vector<const Dialog*> Sessions();

    struct Window;

private:
    std::unique_ptr<Window> mWindow;
};

// Throws the exception type that the platform's windows throw.
[[noreturn]] void ThrowAsAWindow(const std::string& reason);

}  // namespace Platform
