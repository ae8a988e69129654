#pragma once

namespace vexcor {

// The signals that ask the program to end: from the constructor on they don't end it by themselves.
// Nor does the end of whoever reads what it writes.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Waits until `descriptor` is readable, a stop is asked for, or so much time has passed. True
    // if a stop is asked for.
    bool Wait(int descriptor, int milliseconds) const;

private:
    int mDescriptor;
};

}  // namespace vexcor
