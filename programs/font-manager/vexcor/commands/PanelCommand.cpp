#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <system_error>

#include "base/DraftFile.h"
#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/panel/PanelLimits.h"
#include "plugin-core/panel/PanelServer.h"
#include "plugin-core/panel/PanelToken.h"
#include "plugin-core/panel/PanelWorker.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/system/StopSignals.h"

namespace fs = std::filesystem;
using plugincore::Failure;
using plugincore::PanelServer;
using plugincore::Services;

namespace vexcor {
namespace {

constexpr char kPanelProgramName[] = "Vexcor panel";

// A page that leads to the panel's address. The address contains the token, and the arguments of a
// process can be read by other users: the browser gets the path of this file, which they can't
// read. The destructor deletes the file.
class PanelEntry {
public:
    PanelEntry(const fs::path& folder, const std::string& address)
        : mFile(folder / ("panel-" + std::to_string(getpid()) + ".html"))
    {
        const std::string page =
            "<!doctype html><meta charset=\"utf-8\"><meta name=\"referrer\" "
            "content=\"no-referrer\">"
            "<title>Fonts</title><meta http-equiv=\"refresh\" content=\"0; url=" +
            address + "\">\n";
        base::DraftFile draft(mFile.string() + ".XXXXXX");
        std::error_code error = draft.Write(page, S_IRUSR | S_IWUSR);
        if (!error) error = draft.MoveTo(mFile);
        if (error) {
            throw Failure(plugincore::StatusCodes::kError,
                          mFile.string() + ": cannot be written: " + error.message());
        }
    }
    ~PanelEntry()
    {
        std::error_code ignored;  // nobody else can read it
        fs::remove(mFile, ignored);
    }
    PanelEntry(const PanelEntry&) = delete;
    PanelEntry& operator=(const PanelEntry&) = delete;

    const fs::path& GetFile() const { return mFile; }

private:
    fs::path mFile;
};

// Starts the desktop's program that opens a file in the user's browser. Doesn't wait for it.
// Returns its process id, or 0 with one line on standard error: the user has the address.
pid_t StartBrowser(const fs::path& file)
{
    // StopSignals has blocked signals, and a child inherits that.
    sigset_t none;
    (void)sigemptyset(&none);  // these calls fail for lack of memory only
    sigset_t changed;
    (void)sigemptyset(&changed);
    (void)sigaddset(&changed, SIGPIPE);
    posix_spawnattr_t attributes;
    (void)posix_spawnattr_init(&attributes);
    (void)posix_spawnattr_setsigmask(&attributes, &none);
    (void)posix_spawnattr_setsigdefault(&attributes, &changed);
    (void)posix_spawnattr_setpgroup(&attributes, 0);  // Ctrl-C ends the panel, not the browser
    (void)posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    std::string program = "xdg-open";
    std::string path = file;
    char* const arguments[] = {program.data(), path.data(), nullptr};
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, program.c_str(), nullptr, &attributes, arguments, environ);
    (void)posix_spawnattr_destroy(&attributes);
    if (error == 0) return child;
    console::PrintError("xdg-open: cannot be started: " + std::generic_category().message(error) +
                        "; open the address in a browser");
    return 0;
}

// Reports once if the browser couldn't be opened.
void CheckBrowser(pid_t& child)
{
    int status = 0;
    if (child == 0 || waitpid(child, &status, WNOHANG) != child) return;
    child = 0;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
    console::PrintError("xdg-open: cannot open a browser; open the address yourself");
}

// Serves the panel until a signal comes, and repairs what killed programs leave, as a host does.
void ServePanel(Services& services, PanelServer& server, const StopSignals& stop, pid_t browser)
{
    using Clock = std::chrono::steady_clock;
    constexpr int kBusyMilliseconds = 5;
    constexpr int kIdleMilliseconds = 50;
    constexpr std::chrono::milliseconds kBetweenRepairs(500);
    constexpr int kNoDescriptor = -1;
    Clock::time_point nextRepair;
    std::string lastFailure;
    while (!stop.Wait(kNoDescriptor,
                      server.GetClientCount() == 0 ? kIdleMilliseconds : kBusyMilliseconds)) {
        CheckBrowser(browser);
        try {
            server.Serve(plugincore::PanelBudget(plugincore::PanelLimits::kTickMicroseconds));
            if (Clock::now() >= nextRepair) {
                nextRepair = Clock::now() + kBetweenRepairs;
                LogRepairs(services.activation.RepairIfNeeded());
            }
            lastFailure.clear();
        } catch (const Failure& failure) {
            // The next tick may succeed: the database may be busy, or the disk full.
            if (lastFailure != failure.what()) console::PrintError(failure.what());
            lastFailure = failure.what();
        }
    }
}

void RunPanel(Services& services, const StopSignals& stop, bool opens)
{
    const fs::path tokenFile = services.locations.panelToken;
    const std::string token = plugincore::LoadOrMakePanelToken(tokenFile);
    plugincore::PanelWorker worker(services.locations);
    PanelServer server(worker.GetQueue(), token, services.database);
    const std::string place = "http://127.0.0.1:" + std::to_string(server.GetPort()) + "/";
    // The log is no place for the token.
    console::LogAction("serving the panel at " + place);
    const std::string address = place + "#" + token;
    const PanelEntry entry(tokenFile.parent_path(), address);
    if (!console::Print(address + "\n")) {
        throw Failure(plugincore::StatusCodes::kError, "standard output cannot be written");
    }
    ServePanel(services, server, stop, opens ? StartBrowser(entry.GetFile()) : 0);
}

}  // namespace

int RunPanelCommand(const Options& options)
{
    const StopSignals stop;
    Services services(plugincore::GetLocations());
    try {
        LogRepairs(services.Start(kPanelProgramName));
        RunPanel(services, stop, !options.noOpen);
    } catch (const Failure&) {
        services.Stop();
        throw;
    }
    services.Stop();
    console::LogAction("ended");
    return kSuccess;
}

}  // namespace vexcor
