#pragma once

#include "GLockStrategy.h"

// Waits until the lockable is free.
class GBlockingLockStrategy : public GLockStrategy {
public:
    unsigned int Lock(GLockable& lockable) override;
};
