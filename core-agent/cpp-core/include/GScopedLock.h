#pragma once

#include <memory>

#include "CoreErrorCodes.h"
#include "GLockStrategy.h"
#include "GNoncopyable.h"

class GLockable;

// Holds a lock for the length of a scope.
//
// Locking can fail, so test IsLocked() before the work that needs the lock. Failures are written to
// the log and never thrown. Use the object on one thread only; the lockable must outlive it.
class GScopedLock : private GNoncopyable {
public:
    static constexpr unsigned int kFailedToAcquireLock = MakeErrorCode(1, 0x101D);

    // lockable   what is locked; not owned
    // lockNow    whether to lock in the constructor
    // strategy   how to lock; owned by this object. Null means GBlockingLockStrategy.
    GScopedLock(GLockable& lockable, bool lockNow, GLockStrategy* strategy);
    // Unlocks if locked.
    ~GScopedLock();

    // Locks unless already locked. Returns IsLocked().
    bool Lock();
    // Unlocks. If the strategy fails, IsLocked() remains true and the destructor tries again.
    void Unlock();
    bool IsLocked() const;

private:
    GLockable& mLockable;
    bool mIsLocked = false;
    std::unique_ptr<GLockStrategy> mLockStrategy;
};
