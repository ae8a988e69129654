#pragma once

#include <pthread.h>

#include <cstdint>

#include "GLockable.h"

// A mutex that knows its owner: a second lock by the thread that holds it fails at once instead of
// blocking for ever. No fairness is promised.
class GMutex : public GLockable {
public:
    static constexpr unsigned int kMutexDeadlockErr = MakeErrorCode(1, 0x100B);
    static constexpr unsigned int kMutexInvalidErr = MakeErrorCode(2, 0x100B);

    GMutex();
    ~GMutex() override;

    // kMutexDeadlockErr when the calling thread holds it already.
    unsigned int Lock() override;
    unsigned int TryLock() override;

    // 0 never waits, 0xFFFFFFFF waits without limit; a timeout gives kLockBusyErr.
    unsigned int TryLockWithTimeout(unsigned int milliseconds) override;

    // kMutexDeadlockErr, and no change, unless the calling thread holds it.
    unsigned int Unlock() override;

private:
    unsigned int LockInternal(unsigned int timeout);
    bool IsHeldByCaller() const;

    pthread_mutex_t mMutex;     // guards the members below; never held across calls
    pthread_cond_t mCondition;  // waiters sleep on it
    int32_t mLockCount = 0;     // 0 when free
    bool mIsRecursive = false;  // nothing sets it
    pthread_t mOwner = {};      // meaningful while the count isn't 0
};
