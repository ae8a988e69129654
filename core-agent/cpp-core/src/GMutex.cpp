#include "GMutex.h"

#include <cerrno>
#include <ctime>

#include "GUtils.h"

namespace {

constexpr unsigned int kNoWait = 0;
constexpr unsigned int kWaitWithoutLimit = 0xFFFFFFFF;

unsigned int ConvertPthreadError(int error)
{
    switch (error) {
        case 0:
            return CoreErrorCodes::kSuccess;
        case EDEADLK:
            return GMutex::kMutexDeadlockErr;
        case EINVAL:
            return GMutex::kMutexInvalidErr;
        case ETIMEDOUT:
            return GLockable::kLockBusyErr;
        default:
            return CoreErrorCodes::kError;
    }
}

}  // namespace

GMutex::GMutex()
{
    // With default attributes, neither call fails.
    (void)pthread_mutex_init(&mMutex, nullptr);
    (void)pthread_cond_init(&mCondition, nullptr);
}

GMutex::~GMutex()
{
    // A destructor can't report a failure.
    (void)pthread_mutex_destroy(&mMutex);
    (void)pthread_cond_destroy(&mCondition);
}

unsigned int GMutex::Lock() { return LockInternal(kWaitWithoutLimit); }

unsigned int GMutex::TryLock() { return LockInternal(kNoWait); }

unsigned int GMutex::TryLockWithTimeout(unsigned int milliseconds)
{
    return LockInternal(milliseconds);
}

unsigned int GMutex::LockInternal(unsigned int timeout)
{
    unsigned int result = CoreErrorCodes::kSuccess;
    // Can't fail: the mutex has default attributes and is never held across calls.
    (void)pthread_mutex_lock(&mMutex);
    if (IsHeldByCaller()) {
        if (mIsRecursive) {
            ++mLockCount;
        } else {
            result = kMutexDeadlockErr;
        }
        (void)pthread_mutex_unlock(&mMutex);
        return result;
    }

    if (mLockCount != 0) {
        if (timeout == kNoWait) {
            result = kLockBusyErr;
        } else if (timeout < kWaitWithoutLimit) {
            timespec end = {};
            GUtils::FutureMillisecondsToAbsTime(timeout, end);
            int waited = 0;
            while (mLockCount > 0 && waited == 0) {
                waited = pthread_cond_timedwait(&mCondition, &mMutex, &end);
            }
            result = ConvertPthreadError(waited);
        } else {
            while (mLockCount > 0 && result == CoreErrorCodes::kSuccess) {
                result = ConvertPthreadError(pthread_cond_wait(&mCondition, &mMutex));
            }
        }
    }
    if (result == CoreErrorCodes::kSuccess && mLockCount == 0) {
        mLockCount = 1;
        mOwner = pthread_self();
    }
    (void)pthread_mutex_unlock(&mMutex);
    return result;
}

unsigned int GMutex::Unlock()
{
    const int taken = pthread_mutex_lock(&mMutex);
    if (taken != 0) return ConvertPthreadError(taken);

    unsigned int result = CoreErrorCodes::kSuccess;
    if (!IsHeldByCaller()) {
        result = kMutexDeadlockErr;
    } else if (--mLockCount == 0) {
        result = ConvertPthreadError(pthread_cond_signal(&mCondition));
    }
    (void)pthread_mutex_unlock(&mMutex);
    return result;
}

bool GMutex::IsHeldByCaller() const
{
    return mLockCount != 0 && pthread_equal(mOwner, pthread_self()) != 0;
}
