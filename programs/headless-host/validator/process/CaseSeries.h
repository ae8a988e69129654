#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "validator/Case.h"
#include "validator/ValidatorReport.h"
#include "validator/process/CaseLimits.h"
#include "validator/process/CaseProcess.h"

namespace headless {

// Runs series of cases one after the other, until the time for all of them is over, with a line of
// progress on a terminal. Main thread only.
class CaseSeries {
public:
    using Next = std::function<std::optional<ValidatorCase>()>;
    using Done = std::function<void(const ValidatorCase&, const CaseOutcome&)>;

    using Judge = std::function<void(CaseOutcome&)>;

    // seconds   for all series, from now on; 0: no limit
    // body      performs a case; see RunCases
    // judge     changes what came of a case, before anyone sees it; may be empty
    // report    must outlive the object
    CaseSeries(const CaseLimits& limits, double seconds, CaseBody body, Judge judge,
               ValidatorReport& report);

    // Runs the cases of a series. A case that is not begun when the time is over is reported as
    // skipped. An interrupt ends the series.
    //
    // total   how many cases there are, for the line of progress
    // next    returns the next case; empty at the end
    // done    called with the outcome of each case that was run; it reports the case
    void Run(size_t total, const Next& next, const Done& done);

    // The same; reports each case with its outcome. A case that failed is run once more, with its
    // journal.
    void Run(size_t total, const Next& next);

    // Runs one case and reports nothing. Returns nothing after an interrupt, or if the time is
    // over.
    std::optional<CaseOutcome> RunAlone(const ValidatorCase& which);

    // The outcome of a second run of a case that failed, which writes a journal; the first outcome
    // if the second run passes.
    CaseOutcome RunWithJournal(const ValidatorCase& which, const CaseOutcome& first);

    bool IsTimeOver() const;

    // Why cases are skipped when the time is over.
    static constexpr char kTimeIsOver[] = "the time was over";

private:
    CaseOutcome MakeJudged(CaseOutcome outcome) const;

    using Clock = std::chrono::steady_clock;

    const CaseLimits mLimits;
    const double mSeconds;
    const CaseBody mBody;
    const Judge mJudge;
    ValidatorReport& mReport;
    const Clock::time_point mStart = Clock::now();
};

}  // namespace headless
