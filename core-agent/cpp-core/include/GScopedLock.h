#pragma once

#include <memory>

#include "CoreErrorCodes.h"
#include "GLockStrategy.h"
#include "GNoncopyable.h"

class GLockable;

// Holds a lock for a scope. Whoever makes one tests IsLocked() and gives up what needed the lock
// when it is false. Failures are reported; nothing is thrown.
class GScopedLock : private GNoncopyable {
public:
    static constexpr unsigned int kFailedToAcquireLock = MakeErrorCode(1, 0x101D);

    // Owns the strategy; null means one that blocks. Locks at once if `lockNow`.
    GScopedLock(GLockable& lockable, bool lockNow, GLockStrategy* strategy);
    ~GScopedLock();

    // True when locked afterwards; does nothing when it was.
    bool Lock();
    // Stays locked when the strategy fails.
    void Unlock();
    bool IsLocked() const;

private:
    GLockable& mLockable;
    bool mIsLocked = false;
    std::unique_ptr<GLockStrategy> mLockStrategy;
};
