#pragma once

#include "CoreErrorCodes.h"
#include "GNoncopyable.h"

// Something that one thread at a time can lock.
//
// All operations return 0 or an error code, and do not throw. The thread that locked must unlock.
// [any thread]
class GLockable : private GNoncopyable {
public:
    static constexpr unsigned int kLockBusyErr = MakeErrorCode(1, 0x100C);

    virtual ~GLockable();

    // Waits, without limit, until the lock is free.
    virtual unsigned int Lock() = 0;

    // Locks without waiting. Returns kLockBusyErr if another thread holds the lock.
    virtual unsigned int TryLock() = 0;

    // Waits at most `milliseconds` and returns kLockBusyErr when they have passed; 0 does not wait.
    // Any other error of TryLock ends the wait and is returned.
    // This implementation polls TryLock every 50 ms, for subclasses without a timed wait.
    virtual unsigned int TryLockWithTimeout(unsigned int milliseconds);

    // Releases the lock of the calling thread.
    virtual unsigned int Unlock() = 0;
};
