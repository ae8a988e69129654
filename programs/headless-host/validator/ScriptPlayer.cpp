#include "validator/ScriptPlayer.h"

#include <fcntl.h>

#include "application/HostPlatformTable.h"
#include "base/FileDescriptor.h"
#include "base/Lines.h"
#include "base/ReadWrite.h"
#include "checks/BrokenRule.h"
#include "model/PluginCode.h"
#include "session/Session.h"
#include "session/SessionLine.h"
#include "simulation/SimulatedWorld.h"
#include "system/Paths.h"

namespace headless {

namespace {

// Of a journal only the last lines are shown. One that takes more than its process may write would
// end the process.
constexpr size_t kMostJournalBytes = size_t{64} << 20;

// Without the file, a crash is not known to be the failed call's.
void WriteFailedCall(const std::string& path, const std::string& line)
{
    const base::FileDescriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    if (file.IsValid()) (void)base::WriteAll(file.Get(), line);
}

// Plays the lines of one script. Lives of the plug-in follow each other in one host: it forgets the
// notifiers, timers and file formats of a plug-in that is unloaded, but its menus remain.
class Player {
public:
    Player(const ValidatorCase& which, const std::string& plugin, SimulatedWorld& world)
        : mCase(which),
          mPlugin(plugin),
          mWorld(world),
          mHost(world, [&world](const std::string& path) { return world.Read(path); })
    {
        mHost.writer = [this](DocumentObject& document, const std::string& path) {
            return mWorld.Write(mHost, document, path);
        };
        mOptions.frameworks = FindFrameworks();
        for (CallFaults* const faults : {&mHost.suiteFaults, &mHost.coreFaults}) {
            faults->SetListener([this](const std::string& call) {
                WriteFailedCall(mFolder + "/failed-calls", call + "\n");
            });
        }
    }

    CaseOutcome Play(const std::vector<std::string>& lines, const std::string& journal)
    {
        std::string error;
        // A journal that cannot be written is missed only where it is shown.
        mHost.journal.LimitFile(kMostJournalBytes);
        if (!journal.empty() && mHost.journal.Open(journal, error)) {
            mHost.journal.WriteHeader({{"host", "headless-host " HEADLESS_HOST_VERSION},
                                       {"language", mWorld.language},
                                       {"frameworks", !mOptions.frameworks.empty()}});
        }
        size_t line = 0;
        do {
            line = PlayLife(lines, line);
        } while (line < lines.size());
        Collect();
        return mOutcome;
    }

private:
    // Plays lines from `line` on, up to the next `restart`. Returns the index behind the last one.
    size_t PlayLife(const std::vector<std::string>& lines, size_t line)
    {
        Application application(mHost, mWorld.language);
        SetPrivateFrameworks(mOptions.frameworks);
        mIsStarted = false;
        const auto start = [&] { Start(application); };
        RunningHost running{mHost, application, mOptions, mFolder, &mWorld, start};
        // Lives as long as the application: lines of `during` may be performed in the shutdown.
        Session session(running, AsksForCalls(mCase.script));
        bool isOver = false;
        while (line < lines.size() && !isOver) {
            isOver = !PlayLine(session, lines[line], line + 1);
            ++line;
        }
        start();  // for a script without a line that needs the plug-in
        application.ShutDown();
        TakeNestedFailures(session, line);
        mHost.duringCalls.clear();
        if (mWorld.isRefused && !mWorld.mayRefuse) AddFinding(mCase.rule, mRefusal);
        ForgetPlugin();
        return mIsEnded ? lines.size() : line;
    }

    // Returns false at the end of the life.
    bool PlayLine(Session& session, const std::string& line, size_t number)
    {
        LineResult result;
        try {
            result = RunLine(session, line);
        } catch (const std::exception& exception) {
            result = {LineOutcome::kWrong, exception.what()};
        }
        TakeNestedFailures(session, number);
        if (result.outcome == LineOutcome::kRestart) return false;
        // What isn't possible is left out: scripts that were made at random, or shrunk.
        const bool isWrong = result.outcome == LineOutcome::kWrong;
        if (isWrong || result.outcome == LineOutcome::kNotAsExpected) {
            AddFinding(mCase.rule, "line " + std::to_string(number) + ": " + result.text);
        }
        mOutcome.hasInvalidLine = mOutcome.hasInvalidLine || isWrong;
        mIsEnded = isWrong || result.outcome == LineOutcome::kQuit;
        return !mIsEnded;
    }

    void TakeNestedFailures(Session& session, size_t number)
    {
        for (const std::string& failure : session.nestedFailures) {
            AddFinding(mCase.rule, "line " + std::to_string(number) + ": " + failure);
        }
        session.nestedFailures.clear();
    }

    void Start(Application& application)
    {
        if (mIsStarted) return;
        mIsStarted = true;
        std::string error;
        if (application.Start(mPlugin, error)) return;
        if (application.Pump() == nullptr) {
            AddFinding(kModuleNotLoaded, error);
            return;
        }
        mWorld.isRefused = true;
        mRefusal = error;
    }

    // A module that the system keeps in memory after the unload remembers the suites that it holds.
    void ForgetPlugin()
    {
        for (std::vector<void*>* const handles :
             {&mHost.notifiers, &mHost.timers, &mHost.fileFormats}) {
            for (void* const handle : *handles) mHost.handles.Expire(handle);
            handles->clear();
        }
        mHost.suites.ForgetLeaks();
        mHost.globalsWord = nullptr;
        mHost.alerts.clear();
        mWorld.isRefused = false;
    }

    void Collect()
    {
        for (size_t i = 0; i < mHost.violations.Lines().size(); ++i) {
            AddFinding(mHost.violations.Rules()[i], mHost.violations.Lines()[i]);
        }
        mOutcome.counts = mWorld.GetCounts(mHost);
        (void)mHost.handles.BeginMessage(false);
        mOutcome.counts.messages = mHost.handles.BeginMessage(false).number - 1;
        if (plugin_code::HasAllocationFailed()) mOutcome.failedCalls.emplace_back("operator new");
        for (const CallFaults* const faults : {&mHost.suiteFaults, &mHost.coreFaults}) {
            const std::vector<std::string>& calls = faults->GetFailedCalls();
            mOutcome.failedCalls.insert(mOutcome.failedCalls.end(), calls.begin(), calls.end());
        }
    }

    void AddFinding(int rule, const std::string& message)
    {
        mOutcome.result = CaseResult::kFailed;
        mOutcome.findings.push_back({rule, message});
    }

    const ValidatorCase& mCase;
    const std::string& mPlugin;
    SimulatedWorld& mWorld;
    CaseOutcome mOutcome;
    Host mHost;
    Options mOptions;
    const std::string mFolder = MakeAbsolute(".");
    std::string mRefusal;
    bool mIsStarted = false;
    bool mIsEnded = false;  // the whole script
};

}  // namespace

CaseOutcome PlayScript(const ValidatorCase& which, const std::string& plugin,
                       const std::string& folder, const std::string& journal)
{
    SimulatedWorld world(folder);
    return Player(which, plugin, world).Play(base::SplitLines(which.script), journal);
}

}  // namespace headless
