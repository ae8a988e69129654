#pragma once

#include <signal.h>  // IWYU pragma: keep

#include "base/FileDescriptor.h"

namespace vexcor {

// Collects the signals that a command gets in the place of Vexcor, and SIGCHLD: from the
// constructor on they are blocked for the thread and for threads that it starts, and SIGCHLD isn't
// ignored. The destructor doesn't undo that. Create one, before any other thread.
class PassedSignals {
public:
    // Throws Failure if the system refuses.
    PassedSignals();

    // Waits for a signal. Returns its number, or 0 after `milliseconds`; -1 waits without limit.
    int Wait(int milliseconds) const;

    // The signals that were blocked before, which is what a command has to begin with.
    const sigset_t& GetMaskBefore() const { return mBefore; }

private:
    sigset_t mBefore = {};
    base::FileDescriptor mDescriptor;
};

}  // namespace vexcor
