#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>

#include "base/FileDescriptor.h"
#include "base/ProcessGroup.h"
#include "validator/Case.h"
#include "validator/process/CaseLimits.h"

namespace headless {

using CaseBody = std::function<CaseOutcome(const ValidatorCase&, const std::string& folder)>;

// A case that is performed in a process of its own. If the object is destroyed, the process is
// killed with all of its process group, and its folder is deleted.
class CaseProcess {
public:
    // Starts the process.
    //
    // place   an absolute path at which nothing exists; becomes the case's folder, and there is a
    //         file of the same name and ".output" beside it
    // Throws std::runtime_error with one line if the folder or the process cannot be made.
    CaseProcess(ValidatorCase which, const CaseLimits& limits, const CaseBody& body,
                std::string place);
    ~CaseProcess();
    CaseProcess(const CaseProcess&) = delete;
    CaseProcess& operator=(const CaseProcess&) = delete;

    // Reads what the process has sent, without waiting. Returns whether the case is over.
    bool Advance();

    // Ends the process with all of its group and returns the outcome. To be called once, after
    // Advance has returned true.
    CaseOutcome Finish();

    const ValidatorCase& GetCase() const { return mCase; }
    pid_t GetId() const { return mId; }

    // What poll(2) can wait for; -1 if the process has closed it, which makes its end likely.
    int GetDescriptor() const { return mPipe.Get(); }

    // Until its time is over; 0 if it is. The time that it waits for a processor isn't its own: on
    // a busy machine it gets more.
    double GetSecondsLeft() const;

private:
    bool ReadPipe();
    CaseOutcome Judge(const base::ProcessEnd& end) const;

    ValidatorCase mCase;
    const CaseLimits& mLimits;
    std::string mFolder;
    std::string mOutputFile;
    base::ProcessGroup mProcess;
    pid_t mId = -1;
    base::FileDescriptor mPipe;
    std::string mReceived;
    bool mIsLate = false;
    double mWaited = 0;  // for a processor, as far as is known, in seconds
    std::chrono::steady_clock::time_point mStart;
};

}  // namespace headless
