#include "validator/CasePool.h"

#include <poll.h>

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include "system/Interrupts.h"
#include "system/StrayProcesses.h"
#include "system/TemporaryFolder.h"
#include "validator/process/CaseProcess.h"

namespace headless {

namespace {

// How often the pool looks for interrupts, for processes whose time is over, and for those that
// have ended although others still hold their pipe.
constexpr double kMostWaitSeconds = 0.05;
// For a process that has closed its pipe: it is about to end.
constexpr double kEndWaitSeconds = 0.002;

void WaitForAny(const std::vector<std::unique_ptr<CaseProcess>>& processes)
{
    double seconds = kMostWaitSeconds;
    std::vector<pollfd> polls;
    for (const auto& process : processes) {
        const int descriptor = process->GetDescriptor();
        polls.push_back({descriptor, POLLIN, 0});
        seconds = std::min({seconds, process->GetSecondsLeft(),
                            descriptor < 0 ? kEndWaitSeconds : kMostWaitSeconds});
    }
    // Up to the next millisecond, so that the time is over afterwards. After an interrupted or
    // failed wait, the caller's loop tries again.
    (void)poll(polls.data(), polls.size(), static_cast<int>(seconds * 1000) + 1);
}

}  // namespace

void RunCases(const CaseLimits& limits, const std::function<std::optional<ValidatorCase>()>& next,
              const CaseBody& body,
              const std::function<bool(const ValidatorCase&, const CaseOutcome&)>& done)
{
    const TemporaryFolder scratch(TemporaryFolder::Place::kInMemory);
    const StrayProcesses strays;
    // Destroyed first, so nothing writes to the folder any more when it is deleted.
    std::vector<std::unique_ptr<CaseProcess>> running;
    size_t number = 0;
    bool hasMore = true;
    while (!IsInterrupted()) {
        while (hasMore && running.size() < std::max(limits.jobs, 1U)) {
            std::optional<ValidatorCase> which = next();
            hasMore = which.has_value();
            if (!hasMore) break;
            running.push_back(
                std::make_unique<CaseProcess>(std::move(*which), limits, body,
                                              scratch.GetPath() + "/" + std::to_string(++number)));
        }
        if (running.empty()) return;
        WaitForAny(running);
        std::set<pid_t> known;
        for (size_t i = 0; i < running.size();) {
            if (!running[i]->Advance()) {
                known.insert(running[i++]->GetId());
                continue;
            }
            const std::unique_ptr<CaseProcess> ended = std::move(running[i]);
            running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
            if (!done(ended->GetCase(), ended->Finish())) return;
        }
        strays.Collect(known);
    }
}

}  // namespace headless
