#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "base/Plural.h"
#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/system/StopSignals.h"
#include "vexcor/system/TreeWatch.h"

using plugincore::Failure;
using plugincore::Services;

namespace vexcor {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr char kProgramName[] = "Vexcor watch";

// The time between two checks for killed programs.
constexpr milliseconds kProgramInterval(500);
// Copying fonts makes many changes. The index is refreshed when there was none for kQuiet, but not
// later than kLongestDelay after the first.
constexpr milliseconds kQuiet(200);
constexpr milliseconds kLongestDelay(3000);
// The time between two refreshes of the index if the library can't be watched.
constexpr milliseconds kUnwatchedInterval(10000);

// Keeps the index equal to the library and the activation folder equal to the database, while other
// programs start, end and are killed.
class FontDaemon {
public:
    FontDaemon(Services& services, bool isJson) : mServices(services), mIsJson(isJson)
    {
        mFolders = mServices.folders.GetFolders();
        mWatch.Watch(mFolders);
        ReportWatchProblem();
        mServices.library.Refresh();  // for changes before the watch began
        mNextRefresh = Clock::now() + kUnwatchedInterval;
    }

    void Run(const StopSignals& stop)
    {
        while (!stop.Wait(mWatch.GetDescriptor(), GetPause())) {
            try {
                CheckLibrary();
                CheckPrograms();
                mLastFailure.clear();
            } catch (const Failure& failure) {
                // The next check may succeed: the database may be busy, or the disk full.
                if (mLastFailure != failure.what()) console::PrintError(failure.what());
                mLastFailure = failure.what();
            }
        }
    }

private:
    int GetPause() const
    {
        return static_cast<int>(
            (mIsChanged ? std::min(kQuiet, kProgramInterval) : kProgramInterval).count());
    }

    void CheckLibrary()
    {
        const Clock::time_point now = Clock::now();
        if (mWatch.TakeChanges()) {
            if (!mIsChanged) mFirstChange = now;
            mIsChanged = true;
            mLastChange = now;
        }
        const bool isDue =
            mIsChanged && (now - mLastChange >= kQuiet || now - mFirstChange >= kLongestDelay);
        const bool isUnwatchedDue = !mWatch.GetProblem().empty() && now >= mNextRefresh;
        if (isDue || isUnwatchedDue) Refresh();
    }

    void CheckPrograms()
    {
        const Clock::time_point now = Clock::now();
        if (now < mNextCheck) return;
        mNextCheck = now + kProgramInterval;
        ReportRepairs(mServices.activation.RepairIfNeeded());
        std::vector<std::string> folders = mServices.folders.GetFolders();
        if (folders == mFolders && !mWatch.HasMissingFolderAppeared()) return;
        mFolders = std::move(folders);
        console::LogAction("the font library is now " + plugincore::JoinNames(mFolders));
        Refresh();
    }

    void Refresh()
    {
        mWatch.Watch(mFolders);
        ReportWatchProblem();
        mServices.ApplyLibraryChoice();
        mServices.library.Refresh();
        mIsChanged = false;
        mNextRefresh = Clock::now() + kUnwatchedInterval;
        const plugincore::FontLibrary::Counts counts = mServices.library.GetCounts();
        if (counts.filesRead + counts.filesGone == 0) return;
        console::LogAction("index: " + base::Count(static_cast<size_t>(counts.filesRead), "file") +
                           " read, " + std::to_string(counts.filesGone) + " removed");
        PrintEvent({{"event", "index"},
                    {"filesRead", counts.filesRead},
                    {"filesRemoved", counts.filesGone},
                    {"fonts", counts.names}});
    }

    // Without --json only the log has events: the output was one line always.
    void PrintEvent(const nlohmann::ordered_json& event) const
    {
        if (mIsJson) (void)console::Print(base::PrintJson(event) + "\n");  // needs no reader
    }

    void ReportRepairs(const plugincore::Activation::Repairs& repairs) const
    {
        LogRepairs(repairs);
        if (repairs.IsEmpty()) return;
        PrintEvent({{"event", "repaired"},
                    {"gonePrograms", repairs.gonePrograms},
                    {"droppedHolds", repairs.droppedHolds},
                    {"deactivatedFiles", repairs.deactivatedFiles},
                    {"goneFiles", repairs.goneFiles}});
    }

    void ReportWatchProblem()
    {
        if (mProblem == mWatch.GetProblem()) return;
        mProblem = mWatch.GetProblem();
        if (!mProblem.empty()) {
            console::PrintError(mProblem + "; checking the font library every 10 seconds instead");
        }
    }

    Services& mServices;
    bool mIsJson;
    TreeWatch mWatch;
    std::vector<std::string> mFolders;
    bool mIsChanged = false;
    Clock::time_point mFirstChange;
    Clock::time_point mLastChange;
    Clock::time_point mNextCheck;
    Clock::time_point mNextRefresh;
    std::string mProblem;
    std::string mLastFailure;
};

std::string DescribeLibrary(Services& services)
{
    const plugincore::FontLibrary::Counts counts = services.library.GetCounts();
    return "watching " + base::Count(static_cast<size_t>(counts.names), "font") + " in " +
           base::Count(static_cast<size_t>(counts.files), "file") + " of " +
           plugincore::JoinNames(services.library.GetFolders());
}

std::string DescribeLibraryAsJson(Services& services)
{
    const plugincore::FontLibrary::Counts counts = services.library.GetCounts();
    return base::PrintJson(nlohmann::ordered_json{{"event", "watching"},
                                                  {"fonts", counts.names},
                                                  {"files", counts.files},
                                                  {"folders", services.library.GetFolders()}});
}

}  // namespace

int RunWatchCommand(const Options& options)
{
    const StopSignals stop;
    Services services(plugincore::GetLocations());
    if (const auto other = services.programs.EnterAlone(kProgramName)) {
        console::PrintError("already running: " + services.programs.Describe(other->identity));
        return kNegative;
    }
    try {
        LogRepairs(services.Start(kProgramName));
        FontDaemon daemon(services, options.json);
        const std::string line = DescribeLibrary(services);
        console::LogAction(line);
        // The daemon works without a reader of its output, too.
        (void)console::Print(
            (options.json ? DescribeLibraryAsJson(services) : console::MakePrintable(line)) + "\n");
        daemon.Run(stop);
    } catch (const Failure&) {
        services.Stop();
        throw;
    }
    services.Stop();
    console::LogAction("ended");
    return kSuccess;
}

}  // namespace vexcor
