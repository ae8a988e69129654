#pragma once

class GLockable;

// How a lockable gets locked. Both operations give an error code, 0 for success.
class GLockStrategy {
public:
    virtual ~GLockStrategy();
    virtual unsigned int Lock(GLockable& lockable) = 0;
    virtual unsigned int Unlock(GLockable& lockable);
};
