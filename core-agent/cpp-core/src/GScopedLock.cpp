#include "GScopedLock.h"

#include "CppCoreMacros.h"
#include "GBlockingLockStrategy.h"

GScopedLock::GScopedLock(GLockable& lockable, bool lockNow, GLockStrategy* strategy)
    : mLockable(lockable), mLockStrategy(strategy)
{
    if (!mLockStrategy) mLockStrategy = std::make_unique<GBlockingLockStrategy>();
    // The caller tests IsLocked().
    if (lockNow) (void)Lock();
}

GScopedLock::~GScopedLock() { Unlock(); }

bool GScopedLock::Lock()
{
    if (mIsLocked) return true;
    const unsigned int code = mLockStrategy->Lock(mLockable);
    if (code != CoreErrorCodes::kSuccess) {
        LogCoreError("Lockable", 4, code, "mLockStrategy->Lock(mLockable)");
    } else {
        mIsLocked = true;
    }
    return mIsLocked;
}

void GScopedLock::Unlock()
{
    if (!mIsLocked) return;
    const unsigned int code = mLockStrategy->Unlock(mLockable);
    if (code != CoreErrorCodes::kSuccess) {
        LogCoreError("Lockable", 1, code, "mLockStrategy->Unlock(mLockable)");
    } else {
        mIsLocked = false;
    }
}

bool GScopedLock::IsLocked() const { return mIsLocked; }
