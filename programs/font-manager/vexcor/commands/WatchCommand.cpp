#include <algorithm>
#include <chrono>

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

constexpr const char* kProgramName = "Vexcor watch";

// Between two looks at the other programs.
constexpr milliseconds kLook(500);
// Copying fonts makes many changes; the index follows when they have come to an end, or go on so
// long.
constexpr milliseconds kQuiet(200);
constexpr milliseconds kLongest(3000);
// The library is looked at without being told to where it can't be watched.
constexpr milliseconds kUnwatchedLook(10000);

// Keeps index and folder right while other programs come, go and are killed.
class FontDaemon {
public:
    explicit FontDaemon(Services& services) : mServices(services)
    {
        mFolders = mServices.folders.GetFolders();
        mWatch.Watch(mFolders);
        TellOfWatch();
        mServices.library.Refresh();  // for what came before it was watched
        mNextRefresh = Clock::now() + kUnwatchedLook;
    }

    void Run(const StopSignals& stop)
    {
        while (!stop.Wait(mWatch.GetDescriptor(), GetPause())) {
            try {
                LookAtLibrary();
                LookAtPrograms();
                mLastFailure.clear();
            } catch (const Failure& failure) {
                // The database is in use for long, the disk is full: the next look may do better.
                if (mLastFailure != failure.what()) console::Tell(failure.what());
                mLastFailure = failure.what();
            }
        }
    }

private:
    int GetPause() const
    {
        return static_cast<int>((mIsChanged ? std::min(kQuiet, kLook) : kLook).count());
    }

    void LookAtLibrary()
    {
        const Clock::time_point now = Clock::now();
        if (mWatch.TakeChanges()) {
            if (!mIsChanged) mFirstChange = now;
            mIsChanged = true;
            mLastChange = now;
        }
        const bool isDue =
            mIsChanged && (now - mLastChange >= kQuiet || now - mFirstChange >= kLongest);
        const bool isUnwatchedDue = !mWatch.GetProblem().empty() && now >= mNextRefresh;
        if (isDue || isUnwatchedDue) Refresh();
    }

    void LookAtPrograms()
    {
        const Clock::time_point now = Clock::now();
        if (now < mNextLook) return;
        mNextLook = now + kLook;
        LogRepairs(mServices.activation.RepairIfNeeded());
        std::vector<std::string> folders = mServices.folders.GetFolders();
        if (folders == mFolders && !mWatch.HasMissingFolderCome()) return;
        mFolders = std::move(folders);
        console::LogAction("the library is " + plugincore::JoinNames(mFolders));
        Refresh();
    }

    void Refresh()
    {
        mWatch.Watch(mFolders);
        TellOfWatch();
        mServices.ApplyLibraryChoice();
        mServices.library.Refresh();
        mIsChanged = false;
        mNextRefresh = Clock::now() + kUnwatchedLook;
        const plugincore::FontLibrary::Counts counts = mServices.library.GetCounts();
        if (counts.filesRead + counts.filesGone == 0) return;
        console::LogAction("index: " + std::to_string(counts.filesRead) + " files read, " +
                           std::to_string(counts.filesGone) + " taken out");
    }

    void TellOfWatch()
    {
        if (mProblem == mWatch.GetProblem()) return;
        mProblem = mWatch.GetProblem();
        if (!mProblem.empty()) {
            console::Tell(mProblem + "; the library is looked at every 10 seconds");
        }
    }

    Services& mServices;
    TreeWatch mWatch;
    std::vector<std::string> mFolders;
    bool mIsChanged = false;
    Clock::time_point mFirstChange;
    Clock::time_point mLastChange;
    Clock::time_point mNextLook;
    Clock::time_point mNextRefresh;
    std::string mProblem;
    std::string mLastFailure;
};

std::string DescribeLibrary(Services& services)
{
    const plugincore::FontLibrary::Counts counts = services.library.GetCounts();
    return "keeps " + std::to_string(counts.names) + " fonts in " + std::to_string(counts.files) +
           " files of " + plugincore::JoinNames(services.library.GetFolders());
}

}  // namespace

int RunWatchCommand()
{
    const StopSignals stop;
    Services services(plugincore::GetLocations());
    if (const auto other = services.programs.EnterAlone(kProgramName)) {
        console::Tell("runs already: " + services.programs.Describe(other->identity));
        return kNegative;
    }
    try {
        LogRepairs(services.Start(kProgramName));
        FontDaemon daemon(services);
        const std::string line = DescribeLibrary(services);
        console::LogAction(line);
        (void)console::Print(console::MakePrintable(line) +
                             "\n");  // it works on without anybody who reads
        daemon.Run(stop);
    } catch (const Failure&) {
        services.Stop();
        throw;
    }
    services.Stop();
    console::LogAction("ends");
    return kDone;
}

}  // namespace vexcor
