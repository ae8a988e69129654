#include "validator/ScriptPlayer.h"

#include <optional>

#include "application/HostPlatformTable.h"
#include "checks/BrokenRule.h"
#include "session/Session.h"
#include "session/SessionLine.h"
#include "simulation/SimulatedWorld.h"
#include "system/Paths.h"

namespace headless {

namespace {

// The event bus where it is installed, or in the tree where it is built.
std::string FindFrameworks()
{
    for (const char* const place : {"../Frameworks", "../event-bus/Frameworks"}) {
        std::string folder = MakeAbsolute(GetProgramFolder(), place);
        if (IsFolder(folder)) return folder;
    }
    return {};
}

// The lines of a script up to its next `restart`, with one host.
class Life {
public:
    Life(const ValidatorCase& which, const std::string& plugin, SimulatedWorld& world,
         CaseOutcome& outcome, const SuiteLedger& held)
        : mCase(which),
          mPlugin(plugin),
          mWorld(world),
          mOutcome(outcome),
          mHost(world, [&world](const std::string& path) { return world.Read(path); }),
          mApplication(mHost, world.language)
    {
        mHost.suites.Inherit(held);
        mHost.lackingSuites = world.lackingSuites;
        mHost.suiteVersions = world.suiteVersions;
        mHost.writer = [this](DocumentObject& document, const std::string& path) {
            return mWorld.Write(mHost, document, path);
        };
        mOptions.frameworks = FindFrameworks();
        SetPrivateFrameworks(mOptions.frameworks);
    }

    const Host& GetHost() const { return mHost; }

    bool OpenJournal(const std::string& path)
    {
        std::string error;
        return path.empty() || mHost.journal.Open(path, error);
    }

    // Plays lines from `line` on. Returns the index behind the last line played.
    size_t Play(const std::vector<std::string>& lines, size_t line)
    {
        RunningHost running{mHost, mApplication, mOptions, mFolder, &mWorld, [this] { Start(); }};
        Session session(running, mCase.script.find("expect call") != std::string::npos);
        for (; line < lines.size(); ++line) {
            LineResult result;
            try {
                result = RunLine(session, lines[line]);
            } catch (const std::exception& exception) {
                result = {LineOutcome::kWrong, exception.what()};
            }
            for (const std::string& failure : session.nestedFailures) {
                AddFinding(mCase.rule, "line " + std::to_string(line + 1) + ": " + failure);
            }
            session.nestedFailures.clear();
            if (result.outcome == LineOutcome::kRestart) return line + 1;
            if (result.outcome == LineOutcome::kQuit) return lines.size();
            // What isn't possible is left out: scripts that were made at random, or shrunk.
            const bool isWrong = result.outcome == LineOutcome::kWrong;
            if (isWrong || result.outcome == LineOutcome::kNotAsExpected) {
                AddFinding(mCase.rule, "line " + std::to_string(line + 1) + ": " + result.text);
            }
            if (isWrong) return lines.size();
        }
        return line;
    }

    // Shuts the plug-in down and collects what it broke.
    void End()
    {
        mHost.duringCalls.clear();  // of the session, which is gone
        Start();  // a script without a line that needs the plug-in
        mApplication.ShutDown();
        if (mWorld.isRefused && !mWorld.mayRefuse) AddFinding(mCase.rule, mRefusal);
        for (size_t i = 0; i < mHost.violations.Lines().size(); ++i) {
            AddFinding(mHost.violations.Rules()[i], mHost.violations.Lines()[i]);
        }
        const SimulatedWorld::Counts counts = mWorld.GetCounts(mHost);
        for (const CallFaults* const faults : {&mHost.suiteFaults, &mHost.coreFaults}) {
            if (!faults->GetFailedCall().empty()) mOutcome.failedCall = faults->GetFailedCall();
        }
        mOutcome.counts = {counts.suiteCalls, counts.coreCalls, counts.allocations};
    }

private:
    void Start()
    {
        if (mIsStarted) return;
        mIsStarted = true;
        std::string error;
        if (mApplication.Start(mPlugin, error)) return;
        if (mApplication.Pump() == nullptr) AddFinding(kModuleNotLoaded, error);
        mWorld.isRefused = true;
        mRefusal = error;
    }

    void AddFinding(int rule, const std::string& message)
    {
        mOutcome.result = CaseResult::kFailed;
        mOutcome.findings.push_back({rule, message});
    }

    const ValidatorCase& mCase;
    const std::string& mPlugin;
    SimulatedWorld& mWorld;
    CaseOutcome& mOutcome;
    Host mHost;
    Application mApplication;
    Options mOptions;
    const std::string mFolder = MakeAbsolute(".");
    bool mIsStarted = false;
    std::string mRefusal;
};

std::vector<std::string> SplitLines(const std::string& text)
{
    std::vector<std::string> lines;
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

}  // namespace

CaseOutcome PlayScript(const ValidatorCase& which, const std::string& plugin,
                       const std::string& folder, const std::string& journal)
{
    CaseOutcome outcome;
    SimulatedWorld world(folder);
    const std::vector<std::string> lines = SplitLines(which.script);
    size_t line = 0;
    RuleViolations none;
    SuiteLedger held(none);
    do {
        Life life(which, plugin, world, outcome, held);
        // A journal that cannot be written is missed only where it is shown.
        (void)life.OpenJournal(line == 0 || journal.empty() ? journal
                                                            : journal + "-" + std::to_string(line));
        line = life.Play(lines, line);
        life.End();
        world.isRefused = false;
        held.Inherit(life.GetHost().suites);
    } while (line < lines.size());
    return outcome;
}

}  // namespace headless
