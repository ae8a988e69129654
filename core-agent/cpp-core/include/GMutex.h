#pragma once

#include <pthread.h>

#include <cstdint>

#include "GLockable.h"

// A mutex that knows its owner: a second lock by the thread that holds it fails at once instead of
// deadlocking. It is not fair: waiting threads get it in no particular order.
//
// Every operation may also return kMutexInvalidErr, or CoreErrorCodes::kError, if the operating
// system refuses. [any thread] Destroy it only when it is free and no thread waits for it.
class GMutex : public GLockable {
public:
    static constexpr unsigned int kMutexDeadlockErr = MakeErrorCode(1, 0x100B);
    static constexpr unsigned int kMutexInvalidErr = MakeErrorCode(2, 0x100B);

    GMutex();
    ~GMutex() override;

    // Waits without limit. Returns kMutexDeadlockErr if the calling thread already holds it.
    unsigned int Lock() override;
    // Does not wait. Returns kLockBusyErr if another thread holds it, kMutexDeadlockErr if the
    // calling thread does.
    unsigned int TryLock() override;

    // Waits at most `milliseconds`; 0 does not wait, 0xFFFFFFFF waits without limit. Returns
    // kLockBusyErr on timeout, kMutexDeadlockErr if the calling thread already holds it. A change
    // of the system's clock changes the wait.
    unsigned int TryLockWithTimeout(unsigned int milliseconds) override;

    // Releases it. Returns kMutexDeadlockErr and changes nothing if the calling thread does not
    // hold it.
    unsigned int Unlock() override;

private:
    unsigned int LockInternal(unsigned int timeout);
    bool IsHeldByCaller() const;

    pthread_mutex_t mMutex;     // guards the members below; never held across calls
    pthread_cond_t mCondition;  // signalled when the mutex becomes free
    int32_t mLockCount = 0;     // 0 when free
    bool mIsRecursive = false;  // always false: no caller needs recursion
    pthread_t mOwner = {};      // valid while mLockCount isn't 0
};
