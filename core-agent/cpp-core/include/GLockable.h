#pragma once

#include "CoreErrorCodes.h"
#include "GNoncopyable.h"

// What can be locked. All operations give an error code, 0 for success, and throw nothing.
class GLockable : private GNoncopyable {
public:
    static constexpr unsigned int kLockBusyErr = MakeErrorCode(1, 0x100C);

    virtual ~GLockable();

    // Waits without limit.
    virtual unsigned int Lock() = 0;

    // Never waits; kLockBusyErr when somebody else holds it.
    virtual unsigned int TryLock() = 0;

    // Waits at most so long; 0 never waits. This form polls TryLock, for lockables that have no
    // timed wait of their own.
    virtual unsigned int TryLockWithTimeout(unsigned int milliseconds);

    virtual unsigned int Unlock() = 0;
};
