#pragma once

#include "base/FileDescriptor.h"

namespace vexcor {

// Turns SIGINT, SIGTERM and SIGHUP into a condition to wait for: from the constructor on they are
// blocked for the thread and its children, and SIGPIPE is ignored, so that a reader that ends
// doesn't end this program. The destructor doesn't undo that. Create one, before any other thread.
class StopSignals {
public:
    // Throws Failure if the system refuses.
    StopSignals();

    // Waits until one of the signals comes, `descriptor` is readable or the time has passed.
    // Returns whether one of the signals came. May return false early.
    bool Wait(int descriptor, int milliseconds) const;

private:
    base::FileDescriptor mDescriptor;
};

}  // namespace vexcor
