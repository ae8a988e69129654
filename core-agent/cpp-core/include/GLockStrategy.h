#pragma once

class GLockable;

// Decides how a lockable is locked: by waiting, by trying, or with a timeout.
//
// Both operations return 0, or an error code that means that the lockable's state is unchanged.
// They are called on the thread that is to hold the lock and must not throw.
class GLockStrategy {
public:
    virtual ~GLockStrategy();
    virtual unsigned int Lock(GLockable& lockable) = 0;

    // Returns the result of lockable.Unlock() unless overridden.
    virtual unsigned int Unlock(GLockable& lockable);
};
